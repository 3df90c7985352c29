A dataset of format version 1 is displayed as it is, and brought to the present format by the first change.

  $ . "$TESTDIR/setup.sh"
  $ old() { rm -f "$1" && sqlite3 "$1" < "$TESTDIR/version1.sql"; }
  $ version() { sqlite3 "$1" 'PRAGMA user_version'; }
  $ same() { diff <(sqlite3 "$1" .dump) <(sqlite3 "$2" .dump) && test "$(version "$1")" = "$(version "$2")"; }
  $ old s.mrset; cp s.mrset before.mrset

  $ mrset sets s.mrset
  Multiple response sets
  
  Name  Type       Label    Counted value  Variables
  ----  ---------  -------  -------------  ---------
  $b    category   Colours                 t1
                                           t2
  
  $a    dichotomy           1              q1
                                           q2
  
  $C    category                           q1
                                           q2
                                           q3
  $ mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' | sed -n 5p
  Name  Label    Coded As     Counted Value  Data Type  Elementary Variables
  $ mrset log s.mrset
  The dataset keeps no change of its sets.
  $ mrset undo s.mrset
  mrset: s.mrset keeps no change; there is nothing to undo.
  [1]
  $ mrset check s.mrset
  Remark: The format version is 1: the next change brings it to 2.
  s.mrset is sound.
  $ cmp s.mrset before.mrset && ls
  before.mrset
  s.mrset

On media that cannot be written it is displayed, too.

  $ place=$(mktemp -d /tmp/mrset.XXXXXX) && mkdir "$place/bin" "$place/lib" "$place/data" && cp s.mrset "$place/data"
  $ build=$(dirname "$(dirname "$MRSET_PROGRAM")") && cp "$build/bin/mrset" "$place/bin" && cp -P "$build"/lib/*.so* "$place/lib"
  $ chmod 0444 "$place/data/s.mrset" && chmod 0555 "$place/data" && chmod a+rx "$place"
  $ in_place() { (cd "$place" && if [ "$(id -u)" -eq 0 ]; then setpriv --reuid=65534 --clear-groups "$@"; else "$@"; fi); }
  $ in_place bin/mrset run data/s.mrset -c 'MRSET /DISPLAY NAME=[$b]'
  1> MRSET /DISPLAY NAME=[$b]
  
  Multiple Response Sets
  
  Name  Label    Coded As    Counted Value  Data Type  Elementary Variables
  ----  -------  ----------  -------------  ---------  --------------------
  $b    Colours  Categories  N/A            String     First colour
                                                       t2
  $ in_place bin/mrset run data/s.mrset -c 'MRSET /DELETE NAME=[$b]'
  mrset: data/s.mrset cannot be written: there is no permission to write it or its folder.
  [2]
  $ chmod u+w "$place/data" && rm -r "$place"

The first change sets a copy aside, with the permissions of the dataset.

  $ chmod 0640 s.mrset
  $ mrset run s.mrset -c 'MRSET /MCGROUP NAME=$d VARIABLES=t1 t2'
  mrset: s.mrset was upgraded from format 1 to 2; the original is kept as s.mrset.v1.bak.
  1> MRSET /MCGROUP NAME=$d VARIABLES=t1 t2
  $ same s.mrset.v1.bak before.mrset && stat -c %a s.mrset.v1.bak && version s.mrset && ls
  640
  2
  before.mrset
  s.mrset
  s.mrset.v1.bak
  $ mrset run s.mrset -c 'MRSET /DELETE NAME=[$a]'
  1> MRSET /DELETE NAME=[$a]
  $ mrset undo s.mrset --to 0; mrset check s.mrset
  Undone: changes 1 to 2, which defined $d and deleted $a. The sets are those of version 0 again, as change 3.
  s.mrset is sound.
  $ diff <(mrset sets before.mrset) <(mrset sets s.mrset)

Of several processes that come at once, one brings it to the present format, and all do their work.

  $ old many.mrset; for i in 1 2 3 4 5 6; do mrset run many.mrset -c "MRSET /MCGROUP NAME=\$m$i VARIABLES=t1 t2" > /dev/null 2> "$i.err" & done; wait
  $ cat ?.err | grep -v '^mrset: waiting'; rm ?.err; ls many.mrset*
  mrset: many.mrset was upgraded from format 1 to 2; the original is kept as many.mrset.v1.bak.
  many.mrset
  many.mrset.v1.bak
  $ mrset sets many.mrset --format json | grep -o '"name":"\$m' | wc -l; mrset check many.mrset; rm many.mrset*
  6
  many.mrset is sound.

So does an import that replaces the variables. A copy that is there is never overwritten; one that is the same serves.

  $ old s.mrset; printf 'q1,x\n1,2\n' > other.csv; mrset import --replace other.csv s.mrset
  mrset: s.mrset was upgraded from format 1 to 2; the original is kept as s.mrset.v1.bak.
  s.mrset: 2 variables, 1 case
  mrset: The set $b has the variable t1, which no longer exists.
  mrset: The set $b has the variable t2, which no longer exists.
  mrset: The set $a takes its category labels from the counted value 1, which has no label in the variable q1.
  mrset: The set $a has the variable q2, which no longer exists.
  mrset: The set $C has the variable q2, which no longer exists.
  mrset: The set $C has the variable q3, which no longer exists.
  $ ls *.bak*
  s.mrset.v1.bak
  $ old s.mrset; echo mine > s.mrset.v1.bak; mrset run s.mrset -c 'MRSET /DELETE NAME=ALL'
  mrset: s.mrset was upgraded from format 1 to 2; the original is kept as s.mrset.v1.bak.2.
  1> MRSET /DELETE NAME=ALL
  $ cat s.mrset.v1.bak; same s.mrset.v1.bak.2 before.mrset; mrset check s.mrset
  mine
  s.mrset is sound.

A folder in its place is left alone, too.

  $ old s.mrset; rm *.bak*; mkdir s.mrset.v1.bak s.mrset.v1.bak.2
  $ mrset run s.mrset -c 'MRSET /DELETE NAME=ALL'; ls
  mrset: s.mrset was upgraded from format 1 to 2; the original is kept as s.mrset.v1.bak.3.
  1> MRSET /DELETE NAME=ALL
  before.mrset
  other.csv
  s.mrset
  s.mrset.v1.bak
  s.mrset.v1.bak.2
  s.mrset.v1.bak.3
