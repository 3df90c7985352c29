A newcomer's first hour: what goes wrong at first is answered with what to do.

  $ . "$TESTDIR/setup.sh"
  $ timeless() { sed -E 's/[0-9]{4}-[0-9]{2}-[0-9]{2}[ T][0-9:]{8}Z?/TIME/g'; }
  $ small s.mrset
  $ mrset import --schema "$EXAMPLES/breakfast.schema.json" "$EXAMPLES/breakfast.csv" b.mrset
  b.mrset: 21 variables, 240 cases

A display that sorts is no step of the history: undo takes back what was meant, and says it.

  $ mrset run s.mrset -c 'MRSET /MCGROUP NAME=$b VARIABLES=q1 q2' -c 'MRSET /MCGROUP NAME=$a VARIABLES=q1 q2' -c 'MRSET /DISPLAY NAME=[$none]' > /dev/null
  $ mrset sets s.mrset --format json | grep -o '"name":"[^"]*"'
  "name":"$a"
  "name":"$b"
  $ mrset log s.mrset | timeless
      2  TIME  defined $a
         MRSET /MCGROUP NAME=$a VARIABLES=q1 q2
      1  TIME  defined $b
         MRSET /MCGROUP NAME=$b VARIABLES=q1 q2
         TIME  imported 6 variables, 2 cases
         import --schema small.schema.json small.csv
  $ mrset undo s.mrset
  Undone: change 2, which defined $a. The sets are those of version 1 again, as change 3.
  $ mrset undo s.mrset 0
  Undone: changes 1 to 3, which defined $b. The sets are those of version 0 again, as change 4.
  $ mrset undo s.mrset
  Undone: change 4, which deleted $b. The sets are those of version 3 again, as change 5.
  $ mrset undo s.mrset 1
  The sets are those of version 1 already; nothing was changed.
  $ mrset undo s.mrset 3
  The sets are those of version 3 already; nothing was changed.
  $ mrset undo s.mrset 1 --to 1
  mrset: N and --to cannot be given together.
  Example:
    mrset undo survey.mrset --to 3
  Run "mrset undo --help" for its options.
  [2]
  $ mrset undo s.mrset x
  mrset: N: x is not a version number.
  Example:
    mrset undo survey.mrset --to 3
  Run "mrset undo --help" for its options.
  [2]
  $ mrset check s.mrset
  s.mrset is sound.

Nor does the shell need other words.

  $ printf 'undo 0.\nundo\nvariables t*\nvariables x*\nhelp DELETE\n' | mrset shell s.mrset
  Undone: changes 1 to 5, which defined $b. The sets are those of version 0 again, as change 6.
  Undone: change 6, which deleted $b. The sets are those of version 5 again, as change 7.
  Variables
  
  Name  Type             Label         Value labels
  ----  ---------------  ------------  ------------
  t1    string, 8 bytes  First colour
  t2    string, 5 bytes
  mrset: The dataset has no variable x*.
  DELETE removes sets from the dataset.
  
    MRSET /DELETE NAME=[$drinks $toppings].
    MRSET /DELETE NAME=ALL.
  [1]
  $ mrset variables s.mrset 't*'
  Variables
  
  Name  Type             Label         Value labels
  ----  ---------------  ------------  ------------
  t1    string, 8 bytes  First colour
  t2    string, 5 bytes
  $ mrset variables s.mrset Q --format json | grep -o '"name":"[^"]*"'
  "name":"q1"
  "name":"q2"
  "name":"q3"
  $ mrset variables s.mrset 'x*'
  mrset: The dataset has no variable x*.
  [1]
  $ mrset help DELETE
  DELETE removes sets from the dataset.
  
    MRSET /DELETE NAME=[$drinks $toppings].
    MRSET /DELETE NAME=ALL.
  $ diff <(mrset help) <(mrset --help) && diff <(mrset help run) <(mrset run --help)
  $ mrset help nonsense
  mrset: Unknown subcommand: nonsense.
  Run "mrset --help" for the subcommands.
  [2]

Imports are in the log, without a number.

  $ printf 'q1,q2\n1,0\n' | mrset import --replace - s.mrset
  s.mrset: 2 variables, 1 case
  $ mrset run s.mrset -c 'MRSET /DELETE NAME=ALL' > /dev/null
  $ mrset log b.mrset --width 999 | timeless | sed "s|$EXAMPLES|EXAMPLES|g"
  The dataset keeps no change of its sets.
         TIME  imported 21 variables, 240 cases
         import --schema EXAMPLES/breakfast.schema.json EXAMPLES/breakfast.csv
  $ mrset log s.mrset | timeless | sed -n 1,6p
      8  TIME  deleted $b
         MRSET /DELETE NAME=ALL
         TIME  imported 2 variables, 1 case
         import --replace -
      7  TIME  defined $b
         undo
  $ mrset log s.mrset --format json | timeless | grep -o '"imports":.*'
  "imports":[{"afterChange":7,"time":"TIME","command":"import --replace -","variables":2,"cases":1},{"afterChange":0,"time":"TIME","command":"import --schema small.schema.json small.csv","variables":6,"cases":2}]}
  $ mrset undo s.mrset
  Undone: change 8, which deleted $b. The sets are those of version 7 again, as change 9.

An import that replaces variables names each set that no longer fits them, and why.

  $ small r.mrset
  $ mrset run r.mrset -c 'MRSET /MDGROUP NAME=$d VARIABLES=q1 q2 VALUE=1 CATEGORYLABELS=COUNTEDVALUES /MCGROUP NAME=$c VARIABLES=t1 t2' > /dev/null
  $ printf 'q1,q2,t1,t2\n1,0,red,blue\n0,yes,blue,red\n' > replaced.csv
  $ mrset import --replace replaced.csv r.mrset
  r.mrset: 4 variables, 2 cases
  mrset: The set $d takes its category labels from the counted value 1, which has no label in the variable q1.
  mrset: The set $d has both numeric and string variables.
  $ mrset check r.mrset
  Remark: The set $d takes its category labels from the counted value 1, which has no label in the variable q1.
  Remark: The set $d has both numeric and string variables.
  r.mrset is sound.

So it does where all of its variables changed their type, either way; that no case has its counted value, a check tells.

  $ printf 'q1,q2,t1,t2\n1,0,red,blue\n' > before.csv; printf 'q1,q2,t1,t2\nyes,no,1,2\n' > after.csv
  $ mrset import before.csv types.mrset
  types.mrset: 4 variables, 1 case
  $ mrset run types.mrset -c 'MRSET /MDGROUP NAME=$d VARIABLES=q1 q2 VALUE=1 /MCGROUP NAME=$c VARIABLES=t1 t2' > /dev/null
  $ mrset import --replace after.csv types.mrset
  types.mrset: 4 variables, 1 case
  mrset: The variables of the set $d were numeric and are strings now; it counts the text 1.
  mrset: The variables of the set $c were strings and are numeric now.
  $ mrset check types.mrset
  Remark: The set $d counts the text 1, which no case has in its variables.
  types.mrset is sound.
  $ mrset import --replace after.csv types.mrset
  types.mrset: 4 variables, 1 case
  $ mrset import --replace before.csv types.mrset
  types.mrset: 4 variables, 1 case
  mrset: The variables of the set $d were strings and are numeric now; it counts the number 1.
  mrset: The variables of the set $c were numeric and are strings now.
  $ mrset check types.mrset
  types.mrset is sound.

A column that is a string for the sake of few cells is named.

  $ { echo id,age,name; seq 1 30 | sed 's/.*/&,4&,n&/'; echo 31,x,n; echo 32,?,n; } > ages.csv
  $ mrset import ages.csv ages.mrset
  ages.mrset: 3 variables, 32 cases
  mrset: ages.csv: age is a string variable because 2 of its 32 values are not numbers; the first is "x" in line 32.
  $ mrset import - ages.mrset --replace < ages.csv
  ages.mrset: 3 variables, 32 cases
  mrset: standard input: age is a string variable because 2 of its 32 values are not numbers; the first is "x" in line 32.

Codes such as 007 are numbers that would not stay as they are. Ten columns are named, at most.

  $ printf 'zip,one,mixed\n98052,+1,1\n01234,2,007\n10001,3,x\n00501,4,4\n33109,5,5\n60601,6,6\n' > codes.csv
  $ mrset import codes.csv codes.mrset
  codes.mrset: 3 variables, 6 cases
  mrset: codes.csv: zip is a string variable because 2 of its 6 values would change as numbers; the first is "01234" in line 3.
  mrset: codes.csv: one is a string variable because 1 of its 6 values would change as a number; the first is "+1" in line 2.
  mrset: codes.csv: mixed is a string variable because 2 of its 6 values are not numbers or would change as numbers; the first is "007" in line 3.
  $ wide() { for row in "$(seq -s, -f 'v%g' "$1")" "$(seq -s, "$1")" "$(yes x | head -n "$1" | paste -sd,)" "$(seq -s, "$1")"; do echo "$row"; done; }
  $ wide 11 > wide.csv; mrset import wide.csv wide.mrset 2>&1 | tail -n 2
  mrset: wide.csv: v10 is a string variable because 1 of its 3 values is not a number; the first is "x" in line 3.
  mrset: wide.csv: 1 more column is a string variable because of a few values.
  $ wide 12 | mrset import --replace - wide.mrset 2>&1 | tail -n 1
  mrset: standard input: 2 more columns are string variables because of a few values.

A set that takes its labels from the counted value is not copied to where there are none.

  $ small w.mrset
  $ mrset run w.mrset -c 'MRSET /MDGROUP NAME=$d VARIABLES=q1 q2 VALUE=1 CATEGORYLABELS=COUNTEDVALUES' > /dev/null
  $ printf 'q1,q2\n1,0\n' > next.csv && mrset import next.csv next.mrset
  next.mrset: 2 variables, 1 case
  $ mrset copy w.mrset next.mrset
  mrset: The set $d cannot be copied: in next.mrset it takes its category labels from the counted value 1, which has no label in the variable q1 (and 1 more).
  mrset: Nothing is copied; --skip-incomplete copies the other sets.
  [1]
  $ mrset copy w.mrset next.mrset '$D1'
  mrset: The dataset w.mrset has no set $D1.
  [2]
  $ mrset copy b.mrset next.mrset d
  mrset: The dataset b.mrset has no set d.
  [2]
  $ mrset run w.mrset -c 'MRSET /MCGROUP NAME=$drinks VARIABLES=q1 q2' > /dev/null
  $ mrset copy w.mrset next.mrset '$dirnks'
  mrset: The dataset w.mrset has no set $dirnks; did you mean $drinks?
  [2]
  $ mrset script w.mrset drinks
  mrset: The dataset w.mrset has no set drinks; did you mean $drinks?
  [2]

A forgotten period, in four forms.

  $ for first in '/MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1' '/MDGROUP VALUE=1 NAME=$a VARIABLES=q1 q2' '/DELETE NAME=[$a]' '/DISPLAY NAME=ALL'
  > do
  >   printf 'MRSET %s\nMRSET /DISPLAY NAME=ALL.\n' "$first" > period.script
  >   mrset run w.mrset period.script | tail -n +3
  > done
  Error: Unexpected token / in this context
    period.script, line 2, column 7:
      MRSET /DISPLAY NAME=ALL.
            ^
  hint: line 1 has no period at its end
  Error: The variable MRSET is not in the dataset.
    period.script, line 2, column 1:
      MRSET /DISPLAY NAME=ALL.
      ^^^^^
  hint: line 1 has no period at its end
  Error: Unexpected MRSET keyword in DELETE subcommand.
    period.script, line 2, column 1:
      MRSET /DISPLAY NAME=ALL.
      ^^^^^
  hint: line 1 has no period at its end
  Error: Unexpected MRSET keyword in DISPLAY subcommand.
    period.script, line 2, column 1:
      MRSET /DISPLAY NAME=ALL.
      ^^^^^
  hint: line 1 has no period at its end
  [1]
  $ printf 'MRSET /DISPLAY NAME=ALL\n* All sets.\n' > period.script; mrset run w.mrset period.script | grep -E 'Error|hint'
  Error: Unexpected * keyword in DISPLAY subcommand.
  hint: line 1 has no period at its end
  [1]
  $ mrset run w.mrset -c 'MRSET /DISPLAY NAME=ALL. MRSET /DISPLAY NAME=ALL.' | grep -E 'Error|hint'
  Error: Square bracket expected.
  hint: a period ends a command only at the end of a line
  [1]

A comment without a period takes in what follows.

  $ printf '* note\nMRSET /DELETE NAME=ALL.\n' > comment.script; mrset run w.mrset comment.script
  mrset: comment.script: the comment from line 1 took in line 2, because no period ends it.
  $ mrset shell w.mrset < comment.script
  mrset: standard input: the comment from line 1 took in line 2, because no period ends it.
  $ mrset run w.mrset -c "$(cat comment.script)" --format json
  mrset: -c 1: the comment from line 1 took in line 2, because no period ends it.

Habits of word processors and of other languages.

  $ mrset run w.mrset -c 'MRSET /MDGROUP NAME=$a LABEL=“Drinks” VARIABLES=q1 q2 VALUE=1' | grep -E 'Error|hint'
  Error: A quoted label string was expected. Found \xe2\x80\x9c .. (esc)
  hint: put texts in straight quotes, ' or ", not in \xe2\x80\x9c (esc)
  [1]
  $ mrset run w.mrset -c 'MRSET /MDGROUP NAME=$a LABEL="Drinks” VARIABLES=q1 q2 VALUE=1' | grep -E 'Error|hint'
  Error: Line 1: A string is not closed on its line.
  hint: \xe2\x80\x9d does not close a text that " opens (esc)
  [1]
  $ mrset run w.mrset -c 'MRSET /MDGROUP NAME=$a VARIABLES=t1 t2 VALUE=‘red’' | grep -E 'Error|hint'
  Error: The MRSET value was expected. Found \xe2\x80\x98... (esc)
  hint: put texts in straight quotes, ' or ", not in \xe2\x80\x98 (esc)
  [1]
  $ mrset run w.mrset -c 'MRSET /MDGROUP NAME=$a VARIABLES=q1, q2 VALUE=1' | grep -E 'Error|hint'
  Error: Unexpected , keyword in MDGROUP subcommand.
  hint: separate names and keywords by blanks, not commas
  [1]
  $ mrset run w.mrset -c 'MRSET /MDGROUP NAME=$a, LABEL="x" VARIABLES=q1 q2 VALUE=1' | grep -E 'Error|hint'
  Error: Unexpected token , in this context
  hint: separate names and keywords by blanks, not commas
  [1]
  $ mrset run w.mrset -c 'MRSET /DELETE NAME=[$a, $b]' | grep -E 'Error|hint'
  Error: Name or right sq bracket expected. Found ,...
  hint: separate names and keywords by blanks, not commas
  [1]
  $ mrset run w.mrset -c 'MRSET /DISPLAY NAME=ALL;' | grep -E 'Error|hint'
  Error: Unexpected ; keyword in DISPLAY subcommand.
  hint: a command ends with a period, not with ;
  [1]
  $ printf '# note\nMRSET /DISPLAY NAME=ALL.\n' | mrset run w.mrset - | grep -E 'Error|hint'
  Error: Line 1: # is not a command. The command here is MRSET.
  hint: a comment starts with * and ends with a period, or goes between /* and */ on one line
  [1]
  $ printf '// note\nMRSET /DISPLAY NAME=ALL.\n' | mrset run w.mrset - | grep -E 'Error|hint'
  Error: Line 1: / is not a command. The command here is MRSET.
  hint: a comment starts with * and ends with a period, or goes between /* and */ on one line
  [1]
  $ printf 'MRSET /DISPLAY NAME=ALL // note\n  .\n' | mrset run w.mrset - | grep -E 'Error|hint'
  Error: Invalid MRSET subcommand. Found / ..
  hint: a comment starts with * and ends with a period, or goes between /* and */ on one line
  [1]
  $ printf 'MRSET /MCGROUP NAME=$a VARIABLES=q1 q2 # note\n  .\n' | mrset run w.mrset - | grep -E 'Error|hint'
  Error: The variable # is not in the dataset.
  hint: a comment starts with * and ends with a period, or goes between /* and */ on one line
  [1]

A name that begins with # may be misspelt; a comment that goes over two lines, and one with // after a list, are explained.

  $ mrset run w.mrset -c 'MRSET /MCGROUP NAME=$a VARIABLES=#q1 q2' | grep -E 'Error|hint'
  Error: The variable #q1 is not in the dataset.
  [1]
  $ small h.mrset; printf 'region1,region2\n1,0\n' | mrset import --replace - h.mrset 2> /dev/null
  $ mrset run h.mrset -c 'MRSET /MCGROUP NAME=$a VARIABLES=#region1 region2' -c 'MRSET /MCGROUP NAME=#a VARIABLES=region1 region2' | grep -E 'Error|hint'
  Error: The variable #region1 is not in the dataset.
  hint: did you mean region1?
  Error: The MRSET name #a must start with $.
  [1]
  $ mrset run h.mrset -c 'MRSET /DELETE #NAME=ALL' | grep -E 'Error|hint'
  Error: Unexpected #NAME keyword in DELETE subcommand.
  hint: did you mean NAME?
  [1]
  $ printf 'MRSET /MCGROUP NAME=$a /* two\n  lines */ VARIABLES=region1 region2.\n' | mrset run h.mrset - | grep -E 'Error|hint'
  Error: Unexpected token * in this context
  hint: there is no /* on the line of this */: a comment ends with its line
  [1]
  $ printf 'MRSET /MDGROUP NAME=$a VARIABLES=region1 region2 // regions\n  VALUE=1.\n' | mrset run h.mrset - | grep -E 'Error|hint'
  Error: MDGROUP $a has no counted value.
  hint: a comment starts with * and ends with a period, or goes between /* and */ on one line
  [1]

An aborted command is explained.

  $ printf 'MRSET /DELETE NAME=[a].\nMRSET /DELETE NAME=[].\nMRSET /MCGROUP VARIABLES=q1 q2.\nMRSET /DELETE NAME=/.\n' | mrset run w.mrset - | numberless
  1> MRSET /DELETE NAME=[a]
  Fatal: mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `(*namesIter)[0] == '$'' failed.
  hint: names of sets begin with $; a does not
  The command was aborted; the dataset is as it was before it.
  
  2> MRSET /DELETE NAME=[]
  Fatal: mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `!subcmd.fNames.empty()' failed.
  hint: the list in the brackets is empty
  The command was aborted; the dataset is as it was before it.
  
  3> MRSET /MCGROUP VARIABLES=q1 q2
  Error: MCGROUP has no name.
    standard input, line 3, column 8:
      MRSET /MCGROUP VARIABLES=q1 q2.
             ^^^^^^^
  Fatal: mrset: backend/mrset/mrsetapply.cpp:LINE: void AddMCGroup(const MRSetSubcommand&, const ZEVA_DataSource&, VARIABLESETS&): Assertion `!subcmd.fName.empty()' failed.
  hint: MCGROUP has no name: add NAME=$name
  The command was aborted; the dataset is as it was before it.
  
  4> MRSET /DELETE NAME=/
  Fatal: mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `!subcmd.fNames.empty()' failed.
  hint: put names of sets in brackets: NAME=[$name]
  The command was aborted; the dataset is as it was before it.
  [3]
  $ mrset run w.mrset -c 'MRSET /DELETE NAME=[]' --format json | grep -o '"hints":.*'
  "hints":["the list in the brackets is empty","no name comes after NAME=: a shell replaces $names in a command that is not in single quotes"]}
  [3]

Variables that label the counted value differently, as answers do.

  $ mrset run w.mrset --dry-run -c 'MRSET /MDGROUP NAME=$labels VARIABLES=q1 q2 q3 VALUE=1'
  1> MRSET /MDGROUP NAME=$labels VARIABLES=q1 q2 q3 VALUE=1
  Warning: CountVal 1 label different in the variables.
    -c 1, line 1, column 54:
      MRSET /MDGROUP NAME=$labels VARIABLES=q1 q2 q3 VALUE=1
                                                           ^
  Warning: CountVal 1 label different in the variables.
  hint: the variables of $labels label 1 differently, so each label may be an answer: CATEGORYLABELS=COUNTEDVALUES names the answers by these labels
  Dry run: $labels would be added.
  $ mrset run w.mrset --dry-run -c 'MRSET /MDGROUP NAME=$labels VARIABLES=q1 q2 VALUE=0' | grep -c CATEGORYLABELS
  0
  [1]

A dry run says what would change.

  $ mrset run b.mrset -c 'MRSET /MCGROUP NAME=$b VARIABLES=drink1 drink2 /MCGROUP NAME=$a VARIABLES=drink1 drink2 /MCGROUP NAME=$c VARIABLES=drink1 drink2 /MCGROUP NAME=$d VARIABLES=drink1 drink2' > /dev/null
  $ mrset run b.mrset --dry-run -c 'MRSET /DISPLAY NAME=[$none]' -c 'MRSET /MCGROUP NAME=$a VARIABLES=drink2 drink1 /DELETE NAME=[$b $c] /MCGROUP NAME=$new VARIABLES=drink1 drink2' -c 'MRSET /DELETE NAME=ALL' -c 'MRSET /DELETE NAME=ALL' | grep Dry
  Dry run: the sets would be reordered.
  Dry run: $new would be added; $a would be changed; $b, $c would be deleted.
  Dry run: $a, $d, $new would be deleted.
  $ mrset run b.mrset --dry-run -c 'MRSET /DELETE NAME=ALL' --format json | grep -o '"dryRun".*'
  "dryRun":"Dry run: 4 sets would be deleted."}
  $ mrset run b.mrset --dry-run -c 'MRSET /DELETE NAME=ALL' --format html | grep -o '[^>]*would be[^<]*'
  Dry run: 4 sets would be deleted.
  $ mrset run b.mrset --dry-run -c 'MRSET /DELETE NAME=ALL' --format markdown
  ## Command 1
  
  ```
  MRSET /DELETE NAME=ALL
  ```
  
  Dry run: 4 sets would be deleted.
  $ mrset run b.mrset --dry-run -c 'MRSET /DELETE NAME=ALL' --format csv
  -c 1, line 1: Dry run: 4 sets would be deleted.
  $ mrset run b.mrset -c 'MRSET /DELETE NAME=[$d]' | grep -c Dry
  0
  [1]

The format follows the ending of the output file; --format comes first.

  $ for name in a.html a.HTM a.json a.md a.csv a.txt a.other a; do mrset run b.mrset -c 'MRSET /DISPLAY NAME=[$a]' --output "$name"; head -c 9 "$name" | head -n 1; done
  <!DOCTYPE<!DOCTYPE{"command## CommanCommand,T1> MRSET 1> MRSET 1> MRSET  (no-eol)
  $ mrset run b.mrset -c 'MRSET /DISPLAY NAME=[$a]' --output a.html --format text; head -n 1 a.html
  1> MRSET /DISPLAY NAME=[$a]

Tables are as wide as they are wanted, and the entries of a list stay apart.

  $ printf 'a,b\n1,1\n' > long.csv
  $ printf '{"fields": [{"name": "a", "title": "Tea, with milk or lemon, at any time of the day"}, {"name": "b", "title": "Coffee, black or white, before or after breakfast"}]}' > long.schema.json
  $ mrset import --schema long.schema.json long.csv long.mrset
  long.mrset: 2 variables, 1 case
  $ mrset run long.mrset -c 'MRSET /MCGROUP NAME=$hot VARIABLES=a b /DISPLAY NAME=ALL' | tail -n +3
  Multiple Response Sets
  
  Name  Label  Coded As    Counted  Data     Elementary Variables
                           Value    Type
  ----  -----  ----------  -------  -------  -------------------------------------
  $hot         Categories  N/A      Numeric  Tea, with milk or lemon, at any time
                                               of the day
                                             Coffee, black or white, before or
                                               after breakfast
  $ mrset run long.mrset --width 120 --output wide.txt -c 'MRSET /DISPLAY NAME=ALL'; tail -n +5 wide.txt
  Name  Label  Coded As    Counted Value  Data Type  Elementary Variables
  ----  -----  ----------  -------------  ---------  -------------------------------------------------
  $hot         Categories  N/A            Numeric    Tea, with milk or lemon, at any time of the day
                                                     Coffee, black or white, before or after breakfast
  $ mrset sets long.mrset --width 40
  Multiple response sets
  
  Name  Type     Label  Counted  Variables
                        value
  ----  -------  -----  -------  ---------
  $hot  categor                  a
        y                        b
  $ mrset variables long.mrset --width 40
  Variables
  
  Name  Type     Label              Value
                                    labels
  ----  -------  -----------------  ------
  a     numeric  Tea, with milk or
                 lemon, at any
                 time of the day
  
  b     numeric  Coffee, black or
                 white, before or
                 after breakfast
  $ mrset log long.mrset --width 40 | timeless
      1  TIME  defined $hot
         MRSET /MCGROUP NAME=$hot VARIA...
         TIME  imported 2 variables, 1 case
         import --schema long.schema.js...
  $ echo sets | mrset shell long.mrset --width 40
  Multiple response sets
  
  Name  Type     Label  Counted  Variables
                        value
  ----  -------  -----  -------  ---------
  $hot  categor                  a
        y                        b
  $ mrset sets long.mrset --width 19
  mrset: --width: 19 is not a whole number from 20 to 10000.
  Example:
    mrset sets survey.mrset --format json
  Run "mrset sets --help" for its options.
  [2]
  $ mrset sets long.mrset --width wide 2>&1 | sed -n 1p
  mrset: --width: wide is not a whole number from 20 to 10000.
  [2]

A codebook's form of values is obeyed, or refused by name.

  $ printf 'when,price,paid\n2024-05-01,"1.234,50",ja\nn/a,"0,5",nein\n' > form.csv
  $ form() { printf '{"missingValues": ["n/a"], "fields": [{"name": "price", "type": "number", "decimalChar": ",", "groupChar": "."}, {"name": "paid", "type": "boolean", "trueValues": ["ja"], "falseValues": ["nein"]}, {"name": "when", "type": "%s"}]}' "$1" > form.json; }
  $ form date; mrset import --schema form.json form.csv form.mrset
  mrset: form.json, field "when": the type "date" is not supported; with the type "string" the values are kept as text.
  [2]
  $ form string; mrset import --schema form.json form.csv form.mrset
  form.mrset: 3 variables, 2 cases
  $ mrset variables form.mrset
  Variables
  
  Name   Type              Label  Value labels
  -----  ----------------  -----  ------------
  when   string, 10 bytes
  price  numeric
  paid   numeric
