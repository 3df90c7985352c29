Done, not done, not known: where something goes wrong after a change is saved, the user is told that it stands.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset
  $ sets() { mrset sets "$1" --format json | grep -o '"name":"\$[^"]*"' | wc -l; }
  $ define() { for i in $(seq 1 "$1"); do echo "MRSET /MCGROUP NAME=\$s$i VARIABLES=t1 t2."; done; }

Results that nobody gets: a full disk ...

  $ define 400 > many.script; mrset run s.mrset many.script > /dev/full 2> err
  [2]
  $ sed -E 's/by [0-9]+ commands/by N commands/' err; test "$(grep -oE '[0-9]+' err)" = "$(sets s.mrset)"
  mrset: Standard output cannot be written.
  mrset: The dataset was changed by N commands and is saved; mrset log lists the changes.
  $ mrset run s.mrset -c 'MRSET /DELETE NAME=ALL' > /dev/full
  mrset: Standard output cannot be written.
  mrset: The dataset was changed by 1 command and is saved; mrset log lists the changes.
  [2]
  $ mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' > /dev/full
  mrset: Standard output cannot be written.
  [2]
  $ mrset run s.mrset many.script --dry-run > /dev/full; sets s.mrset
  mrset: Standard output cannot be written.
  0
  [1]

... a reader that goes away ...

  $ { mrset run s.mrset many.script 2> err; echo ${PIPESTATUS[0]} > status; } | true; cat status
  141
  $ sed -E 's/by [0-9]+ commands/by N commands/' err; test "$(grep -oE '[0-9]+' err)" = "$(sets s.mrset)"
  mrset: Standard output cannot be written.
  mrset: The dataset was changed by N commands and is saved; mrset log lists the changes.
  $ rm status; { mrset run s.mrset -c 'MRSET /DISPLAY NAME=[$s1]' 2> err; echo $? > status; } | until [ -s status ]; do sleep 0.02; done; cat status err
  0
  $ to_nobody() { python3 -c 'import os, subprocess, sys; r, w = os.pipe(); os.close(r); subprocess.call(sys.argv[1:], stdout=w)' "$@"; }
  $ to_nobody sh -c 'mrset undo s.mrset; echo $? >&2' 2> err; tail -1 err; sed -i '$d' err
  141
  $ sed -E 's/version [0-9]+/version N/' err
  mrset: Standard output cannot be written, but the change is saved: the sets of s.mrset are those of version N again.

... a file that cannot be written ...

  $ mrset run s.mrset -c 'MRSET /DELETE NAME=ALL' > /dev/null; (ulimit -f 90; mrset run s.mrset many.script --output out.txt) 2> err
  [2]
  $ test "$(grep -oE '[0-9]+ commands?' err | grep -oE '[0-9]+')" = "$(sets s.mrset)" && sed -E '1s/^mrset: .+/mrset: WHY/; s/[0-9]+ commands/N commands/' err; ls out.txt
  mrset: WHY
  mrset: The dataset was changed by N commands and is saved; mrset log lists the changes.
  ls: cannot access 'out.txt': No such file or directory
  [2]

... a page, of which nothing is written before its end ...

  $ small p.mrset; (ulimit -f 60; mrset run p.mrset many.script --format html > out.html) 2> err
  [2]
  $ test "$(grep -oE '[0-9]+ commands' err)" = "$(sets p.mrset) commands" && sed -E 's/[0-9]+ commands/N commands/' err; wc -c < out.html
  mrset: p.mrset cannot be read or written: File too large.
  mrset: The dataset was changed by N commands and is saved; mrset log lists the changes.
  0
  $ rm p.mrset; small p.mrset; (ulimit -f 60; mrset run p.mrset many.script > out.txt)
  mrset: p.mrset cannot be read or written: File too large.
  [2]
  $ test "$(grep -c '^[0-9]*> ' out.txt)" = "$(sets p.mrset)"; rm out.txt

... and in the shell.

  $ mrset run s.mrset -c 'MRSET /DELETE NAME=ALL' > /dev/null; mrset shell s.mrset < many.script > /dev/full
  mrset: Standard output cannot be written.
  mrset: The dataset was changed by 1 command and is saved; mrset log lists the changes.
  [2]
  $ echo help | mrset shell s.mrset > /dev/full
  mrset: Standard output cannot be written.
  [2]

A folder that cannot be synchronised: what was made is there, and that this is not confirmed is said. By somebody who
depends on permission.

  $ place=$(mktemp -d /tmp/mrset.XXXXXX) && mkdir "$place/bin" "$place/lib" && mkdir "$place/d" && printf 'a,b\n1,2\n' > "$place/d/x.csv"
  $ build=$(dirname "$(dirname "$MRSET_PROGRAM")") && cp "$build/bin/mrset" "$place/bin" && cp -P "$build"/lib/*.so* "$place/lib"
  $ chmod -R a+rX "$place" && chmod a+rwx "$place/d" && chmod a-r "$place/d"
  $ by_somebody() { (cd "$place/d" && if [ "$(id -u)" -eq 0 ]; then setpriv --reuid=65534 --regid=65534 --clear-groups "$@"; else "$@"; fi); }
  $ by_somebody ../bin/mrset import x.csv s.mrset
  mrset: s.mrset: done; the folder could not be synchronised: Permission denied.
  s.mrset: 2 variables, 1 case
  $ by_somebody ../bin/mrset run s.mrset -c 'MRSET /MCGROUP NAME=$a VARIABLES=a b'
  mrset: s.mrset: done; the folder could not be synchronised: Permission denied.
  1> MRSET /MCGROUP NAME=$a VARIABLES=a b
  $ by_somebody ../bin/mrset undo s.mrset
  mrset: s.mrset: done; the folder could not be synchronised: Permission denied.
  Undone: change 1, which defined $a. The sets are those of version 0 again, as change 2.
  $ by_somebody ../bin/mrset import --replace x.csv s.mrset
  mrset: s.mrset: done; the folder could not be synchronised: Permission denied.
  s.mrset: 2 variables, 1 case
  $ by_somebody ../bin/mrset run s.mrset --output o.txt -c 'MRSET /DISPLAY NAME=ALL'
  mrset: o.txt: done; the folder could not be synchronised: Permission denied.
  $ chmod -R u+rwx "$place" && rm -r "$place"

What a file allows its readers, the file that is to take its place allows from its first byte.

  $ umask 022; mode() { stat -c %a "$@"; }; mkfifo pipe
  $ import_slowly() { rm -f late.txt; mrset import --replace pipe "$1" 2> late.txt & exec 9> pipe; printf 'c,d\n1,2\n' >&9; until mode .mrset-*.tmp 2> /dev/null || ! kill -0 $! 2> /dev/null; do sleep 0.02; done; exec 9>&-; wait; }
  $ chmod 600 s.mrset; import_slowly s.mrset; mode s.mrset
  600
  600
  $ chmod 664 s.mrset; import_slowly s.mrset; mode s.mrset
  644
  664
  $ echo before > out.txt; chmod 640 out.txt
  $ seq 5000 | sed 's/.*/MRSET \/DISPLAY NAME=ALL./' > long.script
  $ mrset run s.mrset long.script --output out.txt & until mode .mrset-*.tmp 2> /dev/null || ! kill -0 $! 2> /dev/null; do sleep 0.02; done; wait; mode out.txt
  640
  640

The right to run as its owner does not go over to what takes its place.

  $ chmod 6755 out.txt; mrset script s.mrset --output out.txt 2> /dev/null; mode out.txt
  755

Two copies crosswise wait for nobody: each has read its source before it takes its target.

  $ small a.mrset && small b.mrset; for i in 1 2 3; do mrset run a.mrset -c "MRSET /MCGROUP NAME=\$a$i VARIABLES=t1 t2" > /dev/null; mrset run b.mrset -c "MRSET /MCGROUP NAME=\$b$i VARIABLES=t1 t2" > /dev/null; done
  $ for i in 1 2 3 4 5; do mrset copy a.mrset b.mrset --lock-timeout 5 > /dev/null & mrset copy b.mrset a.mrset --lock-timeout 5 > /dev/null & wait -n; wait -n; done; sets a.mrset; sets b.mrset
  6
  6

While a copy waits for its target, its source can be saved.

  $ mkfifo orders; sqlite3 b.mrset < orders > /dev/null & exec 8> orders; printf '%s\n' 'BEGIN EXCLUSIVE;' '.shell touch held' >&8; until [ -e held ]; do sleep 0.02; done
  $ mrset copy a.mrset b.mrset > copied 2> err 8>&- & sleep 0.5; mrset run a.mrset -c 'MRSET /DELETE NAME=ALL' --lock-timeout 0; exec 8>&-; wait; sort copied | uniq -c | sed 's/^ *//'
  1> MRSET /DELETE NAME=ALL
  1 $a1: the same already
  1 $a2: the same already
  1 $a3: the same already
  1 $b1: the same already
  1 $b2: the same already
  1 $b3: the same already

A display waits for nobody to keep its order, and never fails for it.

  $ small d.mrset; mrset run d.mrset -c 'MRSET /MCGROUP NAME=$z VARIABLES=t1 t2 /MCGROUP NAME=$y VARIABLES=t1 t2' > /dev/null
  $ rm -f held; sqlite3 d.mrset < orders > /dev/null & exec 8> orders; printf '%s\n' 'BEGIN IMMEDIATE;' '.shell touch held' >&8; until [ -e held ]; do sleep 0.02; done
  $ timeout 5 mrset run d.mrset -c 'MRSET /DISPLAY NAME=ALL' | grep -o '^[$][yz]'
  $y
  $z
  $ exec 8>&-; wait; rm -f held; sqlite3 d.mrset < orders > /dev/null & exec 8> orders; printf '%s\n' 'BEGIN; SELECT * FROM meta;' '.shell touch held' >&8; until [ -e held ]; do sleep 0.02; done
  $ timeout 5 mrset run d.mrset -c 'MRSET /DISPLAY NAME=ALL' | grep -o '^[$][yz]'
  $y
  $z
  $ exec 8>&-; wait; mrset sets d.mrset --format json | grep -o '"name":"\$[^"]*"'
  "name":"$z"
  "name":"$y"
  $ mrset run d.mrset -c 'MRSET /DISPLAY NAME=ALL' > /dev/null; mrset sets d.mrset --format json | grep -o '"name":"\$[^"]*"'
  "name":"$y"
  "name":"$z"

A lack of resources is one sentence.

  $ small r.mrset; { echo MRSET; for i in $(seq 1 300); do echo "/MCGROUP NAME=\$long$i LABEL='$(printf '%0200d' 0)' VARIABLES=t1 t2"; done; } | mrset run r.mrset - > /dev/null
  $ (ulimit -f 8; mrset run r.mrset -c 'MRSET /DISPLAY NAME=ALL') > out
  mrset: The results of a command cannot be kept: File too large.
  [2]
  $ cat out
