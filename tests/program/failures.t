What goes wrong under way: one sentence, exit status 2, and nothing is lost.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset && cp s.mrset before.mrset
  $ seq 1 20000 | awk 'BEGIN { print "a,b" } { print $1 ",text" $1 }' > big.csv
  $ label=$(printf '%0200d' 0); for i in $(seq 1 400); do echo "MRSET /MCGROUP NAME=\$s$i LABEL='$label' VARIABLES=t1 t2."; done > many.script
  $ sets() { mrset sets "$1" --format json | grep -o '"name":"\$' | wc -l; }
  $ answers() { grep -c '^[0-9]*> '; }

A file that may not grow any more.

  $ (ulimit -f 20; mrset import big.csv x.mrset)
  mrset: x.mrset cannot be read or written: File too large.
  [2]
  $ (ulimit -f 100; mrset import --replace big.csv s.mrset)
  mrset: s.mrset cannot be read or written: File too large.
  [2]
  $ cmp s.mrset before.mrset
  $ (ulimit -f 100; mrset run s.mrset many.script > out.txt)
  mrset: s.mrset cannot be read or written: File too large.
  [2]
  $ test "$(answers < out.txt)" -gt 10 && test "$(answers < out.txt)" = "$(sets s.mrset)"
  $ (ulimit -f 4; mrset run s.mrset many.script --dry-run --output out.txt)
  mrset: The output file out.txt cannot be written: File too large.
  [2]
  $ (ulimit -f 4; mrset run s.mrset many.script --dry-run > cut.txt)
  mrset: Standard output cannot be written.
  [2]
  $ (ulimit -f 128; mrset import /dev/stdin x.mrset < <(cat big.csv))
  mrset: /dev/stdin cannot be copied to a temporary file: File too large.
  [2]
  $ ls -A
  before.mrset
  big.csv
  cut.txt
  many.script
  out.txt
  s.mrset

A shell goes on after a save that failed; once there is room the next one is whole.

  $ mkfifo typed; (ulimit -S -f 100; exec mrset shell s.mrset < typed > shell.txt 2> error.txt) & shell=$!; exec 9> typed
  $ cat many.script >&9; until [ -s error.txt ]; do sleep 0.05; done; prlimit --pid $shell --fsize=unlimited
  $ for i in $(seq 100); do echo "MRSET /MCGROUP NAME=\$after$i LABEL='$label' VARIABLES=t1 t2."; done >&9; exec 9>&-; wait $shell
  [2]
  $ sort -u error.txt; test "$(answers < shell.txt)" = "$(sets s.mrset)"; grep -c 'NAME=$after' shell.txt; mrset check s.mrset
  mrset: s.mrset cannot be read or written: File too large.
  100
  s.mrset is sound.
  $ rm typed

Two imports onto one path: one of them makes the dataset, whichever ends first, the other one says so.

  $ rm *.mrset *.txt && mkfifo pipe
  $ mrset import pipe two.mrset 2> late.txt & exec 9> pipe; printf 'a,b\n1,2\n' >&9
  $ mrset import big.csv two.mrset; exec 9>&-; wait $!
  two.mrset: 2 variables, 20000 cases
  [2]
  $ cat late.txt; mrset variables two.mrset --format json
  mrset: two.mrset already exists.
  {"variables":[{"name":"a","width":0,"label":null,"valueLabels":[]},{"name":"b","width":9,"label":null,"valueLabels":[]}]}

With --replace the one that ends last, and the sets of the dataset stay, those too that were defined meanwhile.

  $ mrset import --replace pipe two.mrset 2> late.txt & exec 9> pipe; printf 'c,d\n1,2\n' >&9
  $ mrset import --replace big.csv two.mrset; mrset run two.mrset -c 'MRSET /MCGROUP NAME=$kept VARIABLES=a b' > /dev/null; exec 9>&-; wait $!
  two.mrset: 2 variables, 20000 cases
  $ mrset run two.mrset -c 'MRSET /MCGROUP NAME=$kept VARIABLES=c d' > /dev/null; sets two.mrset; cat late.txt
  1
  two.mrset: 2 variables, 1 case
  $ mrset import --replace pipe new.mrset 2> late.txt & exec 9> pipe; printf 'c,d\n1,2\n' >&9
  $ mrset import big.csv new.mrset; exec 9>&-; wait $!; cat late.txt
  new.mrset: 2 variables, 20000 cases
  new.mrset: 2 variables, 1 case
  $ ls -A
  big.csv
  late.txt
  many.script
  new.mrset
  pipe
  two.mrset

A dataset that is deleted, moved or replaced while a script runs on it. What was answered is in the file that it was
answered for; the file that came in its place is left alone.

  $ for i in $(seq 1 8000); do echo "MRSET /MCGROUP NAME=\$s$((i % 7)) LABEL='$i' VARIABLES=t1 t2."; done > long.script
  $ answered() { timeout 30 bash -c 'until [ -s out.txt ]; do sleep 0.05; done'; }
  $ under_way() { rm -f out.txt; small s.mrset; mrset run s.mrset long.script > out.txt 2> error.txt & answered; }
  $ under_way; rm s.mrset; wait $!; cat error.txt; test -e s.mrset
  mrset: s.mrset was moved or deleted by another program.
  [1]
  $ under_way; mv s.mrset moved.mrset; wait $!
  [2]
  $ cat error.txt; last=$(tail -1 out.txt | sed "s/.*LABEL='\([0-9]*\)'.*/\1/"); mrset sets moved.mrset --format json | grep -o "\"label\":\"$last\""  | sed "s/$last/LAST/"
  mrset: s.mrset was moved or deleted by another program.
  "label":"LAST"
  $ small other.mrset && cp other.mrset before.mrset
  $ under_way; mv other.mrset s.mrset; wait $!; cat error.txt; cmp s.mrset before.mrset
  mrset: s.mrset was moved or deleted by another program.
  $ rm -f *.mrset

Permission that is taken away while a script runs, from somebody who depends on it.

  $ place=$(mktemp -d /tmp/mrset.XXXXXX) && mkdir "$place/bin" "$place/lib" && small "$place/s.mrset" && cp long.script "$place"
  $ build=$(dirname "$(dirname "$MRSET_PROGRAM")") && cp "$build/bin/mrset" "$place/bin" && cp -P "$build"/lib/*.so* "$place/lib"
  $ chmod a+rwx "$place" && chmod a+rw "$place/s.mrset"
  $ by_somebody() { (cd "$place" && if [ "$(id -u)" -eq 0 ]; then setpriv --reuid=65534 --clear-groups "$@"; else "$@"; fi); }
  $ rm out.txt; by_somebody bin/mrset run s.mrset long.script > out.txt 2> error.txt & answered
  $ chmod a-w "$place" "$place/s.mrset"; wait $!
  [2]
  $ cat error.txt; last=$(tail -1 out.txt | sed "s/.*LABEL='\([0-9]*\)'.*/\1/"); mrset sets "$place/s.mrset" --format json | grep -o "\"label\":\"$last\"" | sed "s/$last/LAST/"
  mrset: s.mrset cannot be written: there is no permission to write it or its folder.
  "label":"LAST"
  $ by_somebody bin/mrset run s.mrset -c 'MRSET /DELETE NAME=ALL'
  mrset: s.mrset cannot be written: there is no permission to write it or its folder.
  [2]
  $ by_somebody bin/mrset import --replace /dev/null s.mrset
  mrset: s.mrset cannot be written: there is no permission to write it or its folder.
  [2]
  $ by_somebody bin/mrset import long.script new.mrset
  mrset: new.mrset cannot be written: there is no permission to write it or its folder.
  [2]
  $ chmod a+w "$place/s.mrset"; by_somebody bin/mrset import --replace /dev/null s.mrset
  mrset: s.mrset cannot be written: there is no permission to write it or its folder.
  [2]
  $ by_somebody bin/mrset run s.mrset --output out.txt -c 'MRSET /DISPLAY NAME=ALL'
  mrset: The output file out.txt cannot be written: there is no permission to write it or its folder.
  [2]
  $ mkfifo -m 0444 "$place/results"; by_somebody bin/mrset script s.mrset --output results
  mrset: The output file results cannot be written: there is no permission to write it or its folder.
  [2]
  $ chmod u+w "$place" && rm -r "$place"
