What is no usable dataset is told in one sentence, with exit status 2, and left as it was.

  $ . "$TESTDIR/setup.sh"
  $ try() {
  >   mrset run "$1" -c 'MRSET /DISPLAY NAME=ALL'; echo "run: exit $?"
  >   mrset sets "$1"; echo "sets: exit $?"
  >   mrset variables "$1"; echo "variables: exit $?"
  > }
  $ try missing.mrset
  mrset: missing.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv missing.mrset
  run: exit 2
  mrset: missing.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv missing.mrset
  sets: exit 2
  mrset: missing.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv missing.mrset
  variables: exit 2
  $ try .
  mrset: . is a directory.
  run: exit 2
  mrset: . is a directory.
  sets: exit 2
  mrset: . is a directory.
  variables: exit 2
  $ : > empty.mrset; try empty.mrset
  mrset: empty.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  run: exit 2
  mrset: empty.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  sets: exit 2
  mrset: empty.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  variables: exit 2
  $ seq 1 1000 > text.mrset; try text.mrset
  mrset: text.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  run: exit 2
  mrset: text.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  sets: exit 2
  mrset: text.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  variables: exit 2
  $ sqlite3 other.mrset 'CREATE TABLE t(x)'; try other.mrset
  mrset: other.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  run: exit 2
  mrset: other.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  sets: exit 2
  mrset: other.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  variables: exit 2
  $ small newer.mrset; sqlite3 newer.mrset 'PRAGMA user_version=99'; try newer.mrset
  mrset: newer.mrset was made by a newer version of the program.
  run: exit 2
  mrset: newer.mrset was made by a newer version of the program.
  sets: exit 2
  mrset: newer.mrset was made by a newer version of the program.
  variables: exit 2
  $ small cut.mrset; truncate -s 9000 cut.mrset; try cut.mrset | grep exit
  mrset: cut.mrset is damaged.
  mrset: cut.mrset is damaged.
  mrset: cut.mrset is damaged.
  run: exit 2
  sets: exit 2
  variables: exit 2
  $ ls
  cut.mrset
  empty.mrset
  newer.mrset
  other.mrset
  text.mrset

A dataset that cannot be written can be displayed, but not changed.

  $ small s.mrset
  $ mrset run s.mrset -c 'MRSET /MCGROUP NAME=$b VARIABLES=t1 t2 /MCGROUP NAME=$a VARIABLES=t1 t2' > /dev/null

Whoever runs this, it is done by somebody without rights, in a place that everybody can reach.

  $ place=$(mktemp -d /tmp/mrset.XXXXXX) && mkdir "$place/bin" "$place/lib" "$place/data" && mv s.mrset "$place/data"
  $ build=$(dirname "$(dirname "$MRSET_PROGRAM")") && cp "$build/bin/mrset" "$place/bin" && cp -P "$build"/lib/*.so* "$place/lib"
  $ chmod a-w "$place/data/s.mrset" "$place/data" && chmod a+rx "$place"
  $ in_place() { (cd "$place" && if [ "$(id -u)" -eq 0 ]; then setpriv --reuid=65534 --clear-groups "$@"; else "$@"; fi); }
  $ in_place bin/mrset run data/s.mrset -c 'MRSET /DISPLAY NAME=ALL'
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label  Coded As    Counted Value  Data Type  Elementary Variables
  ----  -----  ----------  -------------  ---------  --------------------
  $a           Categories  N/A            String     First colour
                                                     t2
  
  $b           Categories  N/A            String     First colour
                                                     t2
  $ in_place bin/mrset run data/s.mrset -c 'MRSET /DELETE NAME=[$a]' -c 'MRSET /DISPLAY NAME=[$a]'
  mrset: data/s.mrset cannot be written: there is no permission to write it or its folder.
  [2]
  $ in_place bin/mrset sets data/s.mrset
  Multiple response sets
  
  Name  Type      Label  Counted value  Variables
  ----  --------  -----  -------------  ---------
  $b    category                        t1
                                        t2
  
  $a    category                        t1
                                        t2

One that was left in the middle of a write cannot: whoever may write it puts it right by opening it.

  $ chmod u+w "$place/data" "$place/data/s.mrset"; cp "$place/data/s.mrset" sound.mrset
  $ sqlite3 "$place/data/s.mrset" 'PRAGMA cache_size = 1' 'BEGIN' 'UPDATE block SET cells = zeroblob(100000)' '.shell cp -r '"$place"'/data '"$place"'/hot' 'ROLLBACK' > /dev/null
  $ ls "$place/hot"; cp -r "$place/hot" mine; chmod a-w "$place/hot/s.mrset" "$place/hot"
  s.mrset
  s.mrset-journal
  $ in_place bin/mrset sets hot/s.mrset
  mrset: hot/s.mrset was left in the middle of a write; it must be opened once with permission to write.
  [2]
  $ mrset check mine/s.mrset; diff <(mrset sets mine/s.mrset) <(mrset sets sound.mrset)
  mine/s.mrset is sound.
  $ chmod u+w "$place/data" "$place/hot" && rm -r "$place"
