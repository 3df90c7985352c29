Every change of the sets is kept, is listed, and can be undone.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset
  $ timeless() { sed -E 's/[0-9]{4}-[0-9]{2}-[0-9]{2}[ T][0-9:]{8}Z?/TIME/g'; }
  $ names() { mrset sets "$1" --format json | grep -o '"name":"[^"]*"' | cut -d'"' -f4 | paste -sd' ' || true; }

  $ mrset log s.mrset | timeless
  The dataset keeps no change of its sets.
         TIME  imported 6 variables, 2 cases
         import --schema small.schema.json small.csv
  $ mrset log s.mrset --format json | timeless
  {"log":[],"imports":[{"afterChange":0,"time":"TIME","command":"import --schema small.schema.json small.csv","variables":6,"cases":2}]}
  $ mrset undo s.mrset
  mrset: s.mrset keeps no change; there is nothing to undo.
  [1]

What changes nothing is not listed, nor is a new order alone.

  $ cat > edit.script <<'END'
  > MRSET /MCGROUP NAME=$b VARIABLES=t1 t2
  >   LABEL='Colours that the people who answered like best of all'.
  > MRSET /MCGROUP NAME=$a VARIABLES=q1 q2.
  > MRSET /DISPLAY NAME=[$no].
  > MRSET /MCGROUP NAME=$a VARIABLES=q1 q2.
  > MRSET /DISPLAY NAME=ALL.
  > MRSET /MCGROUP NAME=$A VARIABLES=q1 q3 /DELETE NAME=[$b] /MCGROUP NAME=$c VARIABLES=t1 t2.
  > MRSET /MCGROUP NAME=$d VARIABLES=q1 q2 /MCGROUP NAME=$e VARIABLES=q1 q2 /MCGROUP NAME=$f VARIABLES=q1 q2 /MCGROUP NAME=$g VARIABLES=q1 q2.
  > END
  $ mrset run s.mrset edit.script > /dev/null
  $ mrset log s.mrset | timeless
      4  TIME  defined 4 sets
         MRSET /MCGROUP NAME=$d VARIABLES=q1 q2 /MCGROUP NAME=$e VARIABLES=q1 q...
      3  TIME  defined $c; changed $a; deleted $b
         MRSET /MCGROUP NAME=$A VARIABLES=q1 q3 /DELETE NAME=[$b] /MCGROUP NAME...
      2  TIME  defined $a
         MRSET /MCGROUP NAME=$a VARIABLES=q1 q2
      1  TIME  defined $b
         MRSET /MCGROUP NAME=$b VARIABLES=t1 t2 LABEL='Colours that the people ...
         TIME  imported 6 variables, 2 cases
         import --schema small.schema.json small.csv
  $ mrset log s.mrset --format json | timeless
  {"log":[{"number":4,"time":"TIME","command":"MRSET /MCGROUP NAME=$d VARIABLES=q1 q2 /MCGROUP NAME=$e VARIABLES=q1 q2 /MCGROUP NAME=$f VARIABLES=q1 q2 /MCGROUP NAME=$g VARIABLES=q1 q2","changes":[{"name":"$d","change":"defined"},{"name":"$e","change":"defined"},{"name":"$f","change":"defined"},{"name":"$g","change":"defined"}],"orderChanged":false},{"number":3,"time":"TIME","command":"MRSET /MCGROUP NAME=$A VARIABLES=q1 q3 /DELETE NAME=[$b] /MCGROUP NAME=$c VARIABLES=t1 t2","changes":[{"name":"$b","change":"deleted"},{"name":"$a","change":"changed"},{"name":"$c","change":"defined"}],"orderChanged":false},{"number":2,"time":"TIME","command":"MRSET /MCGROUP NAME=$a VARIABLES=q1 q2","changes":[{"name":"$a","change":"defined"}],"orderChanged":false},{"number":1,"time":"TIME","command":"MRSET /MCGROUP NAME=$b VARIABLES=t1 t2\n  LABEL='Colours that the people who answered like best of all'","changes":[{"name":"$b","change":"defined"}],"orderChanged":false}],"imports":[{"afterChange":0,"time":"TIME","command":"import --schema small.schema.json small.csv","variables":6,"cases":2}]}
  $ TZ=UTC mrset log s.mrset | sed -n 1p | tr ' ' T | grep -cF "$(mrset log s.mrset --format json | grep -oE '[0-9]{4}-[-0-9T:]*' | head -1)"
  1

Its time is UTC, whatever the zone of the machine.

  $ cp s.mrset zones.mrset; before=$(date -u +%FT%TZ)
  $ TZ=EARLY-9 mrset run zones.mrset -c 'MRSET /DELETE NAME=[$d]' > /dev/null; TZ=LATE+9 mrset run zones.mrset -c 'MRSET /DELETE NAME=[$e]' > /dev/null
  $ after=$(date -u +%FT%TZ); mrset log zones.mrset --format json | grep -oE '"time":"[^"]*"' | head -2 | cut -d'"' -f4 | while read -r time; do [[ ! $time < $before && ! $time > $after ]] && echo 'in between'; done
  in between
  in between

To undo is a change too.

  $ names s.mrset
  $A $c $d $e $f $g
  $ mrset undo s.mrset; names s.mrset
  Undone: change 4, which defined 4 sets. The sets are those of version 3 again, as change 5.
  $A $c
  $ mrset undo s.mrset; names s.mrset
  Undone: change 5, which deleted 4 sets. The sets are those of version 4 again, as change 6.
  $A $c $d $e $f $g
  $ mrset undo s.mrset --to 3; names s.mrset
  Undone: changes 4 to 6, which defined 4 sets. The sets are those of version 3 again, as change 7.
  $A $c
  $ mrset undo s.mrset --to 0; names s.mrset
  Undone: changes 1 to 7, which defined $A and $c. The sets are those of version 0 again, as change 8.
  
  $ mrset undo s.mrset --to 5; names s.mrset
  Undone: changes 6 to 8, which deleted $A and $c. The sets are those of version 5 again, as change 9.
  $A $c
  $ mrset undo s.mrset --to 9
  The sets are those of version 9 already; nothing was changed.
  $ mrset undo s.mrset --to 8
  Undone: change 9, which defined $A and $c. The sets are those of version 8 again, as change 10.
  $ mrset log s.mrset | timeless | head -6
     10  TIME  deleted $A $c
         undo --to 8
      9  TIME  defined $A $c
         undo --to 5
      8  TIME  deleted $A $c
         undo --to 0
  $ mrset check s.mrset
  s.mrset is sound.

There is no such version.

  $ before=$(sha256sum s.mrset)
  $ mrset undo s.mrset --to 12
  mrset: s.mrset has no version 12; it keeps 0 to 10.
  [2]
  $ mrset undo s.mrset --to -1
  mrset: --to: -1 is not a version number.
  Example:
    mrset undo survey.mrset --to 3
  Run "mrset undo --help" for its options.
  [2]
  $ mrset undo s.mrset --to 1.5
  mrset: --to: 1.5 is not a version number.
  Example:
    mrset undo survey.mrset --to 3
  Run "mrset undo --help" for its options.
  [2]
  $ mrset undo s.mrset --to ''
  mrset: --to: "" is not a version number.
  Example:
    mrset undo survey.mrset --to 3
  Run "mrset undo --help" for its options.
  [2]
  $ small fresh.mrset; mrset undo fresh.mrset --to 1
  mrset: fresh.mrset has no version 1: its sets were not changed yet, and are version 0.
  [2]
  $ test "$(sha256sum s.mrset)" = "$before"

An order that is undone is mentioned.

  $ small o.mrset; mrset run o.mrset -c 'MRSET /MCGROUP NAME=$b VARIABLES=q1 q2 /MCGROUP NAME=$a VARIABLES=q1 q2' -c 'MRSET /DISPLAY NAME=ALL /MCGROUP NAME=$c VARIABLES=q1 q2' > /dev/null; names o.mrset
  $a $b $c
  $ mrset undo o.mrset; names o.mrset
  Undone: change 2, which defined $c and changed the order of the sets. The sets are those of version 1 again, as change 3.
  $b $a
  $ mrset undo o.mrset; names o.mrset
  Undone: change 3, which deleted $c and changed the order of the sets. The sets are those of version 2 again, as change 4.
  $a $b $c

An import that replaces the variables keeps the sets and their history.

  $ printf 'q1,x\n1,2\n' > other.csv && mrset import --replace other.csv s.mrset
  s.mrset: 2 variables, 1 case
  $ mrset undo s.mrset --to 6; names s.mrset
  Undone: changes 7 to 10, which deleted 6 sets. The sets are those of version 6 again, as change 11.
  $A $c $d $e $f $g
  $ mrset check s.mrset
  Remark: The set $A has the variable q3, which no longer exists.
  Remark: The set $c has the variable t1, which no longer exists.
  Remark: The set $c has the variable t2, which no longer exists.
  Remark: The set $d has the variable q2, which no longer exists.
  Remark: The set $e has the variable q2, which no longer exists.
  Remark: The set $f has the variable q2, which no longer exists.
  Remark: The set $g has the variable q2, which no longer exists.
  s.mrset is sound.

Text that would act on a terminal is shown in a harmless form.

  $ small t.mrset; printf "MRSET /MCGROUP NAME=\$x LABEL='\033[2J\342\200\256' VARIABLES=q1 q2." > odd.script
  $ mrset run t.mrset odd.script > /dev/null; mrset log t.mrset | timeless
      1  TIME  defined $x
         MRSET /MCGROUP NAME=$x LABEL='\x1b[2J\u202e' VARIABLES=q1 q2
         TIME  imported 6 variables, 2 cases
         import --schema small.schema.json small.csv

A full standard output hides no change that was made.

  $ mrset undo t.mrset > /dev/full
  mrset: Standard output cannot be written, but the change is saved: the sets of t.mrset are those of version 0 again.
  [2]
  $ mrset sets t.mrset
  The dataset has no multiple response sets.
  $ mrset undo t.mrset --to 0 > /dev/full
  mrset: Standard output cannot be written.
  [2]
