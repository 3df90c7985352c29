Surveys become datasets.

  $ . "$TESTDIR/setup.sh"

With a codebook.

  $ mrset import --schema "$EXAMPLES/breakfast.schema.json" "$EXAMPLES/breakfast.csv" b.mrset
  b.mrset: 21 variables, 240 cases
  $ mrset variables b.mrset
  Variables
  
  Name        Type              Label                           Value labels
  ----------  ----------------  ------------------------------  ------------------
  id          numeric           Respondent
  
  region      string, 1 byte    Region of residence             N = North
                                                                E = East
                                                                S = South
                                                                W = West
  
  born        numeric           Year of birth
  
  minutes     numeric           Minutes spent on breakfast
  
  vegetarian  numeric           Vegetarian
  
  drink1      numeric           Tea                             0 = No
                                                                1 = Yes
  
  drink2      numeric           Coffee                          0 = No
                                                                1 = Yes
  
  drink3      numeric           Juice                           0 = No
                                                                1 = Yes
  
  drink4      numeric           Milk                            0 = No
                                                                1 = Yes
  
  drink5      numeric           Water                           0 = No
                                                                1 = Yes
  
  food1       numeric           What do you eat at breakfast?:  0 = Not chosen
                                Bread                           1 = Bread
  
  food2       numeric           What do you eat at breakfast?:  0 = Not chosen
                                Cereal                          1 = Cereal
  
  food3       numeric           What do you eat at breakfast?:  0 = Not chosen
                                Eggs                            1 = Eggs
  
  food4       numeric           What do you eat at breakfast?:  0 = Not chosen
                                Fruit                           1 = Fruit
  
  food5       numeric           What do you eat at breakfast?:  0 = Not chosen
                                Yoghurt                         1 = Yoghurt
  
  food6       numeric           What do you eat at breakfast?:  0 = Not chosen
                                Something else                  1 = Something else
  
  topping1    string, 6 bytes   Butter
  
  topping2    string, 6 bytes   Jam
  
  topping3    string, 6 bytes   Honey
  
  topping4    string, 6 bytes   Cheese
  
  comment     string, 60 bytes  Anything else about your
                                breakfast?

Without one, types and widths come from the data.

  $ printf 'id,name,score,empty\n1,Zoë,2.5,\n2,"a ""b""",-3e2,\n' > plain.csv
  $ mrset import plain.csv p.mrset
  p.mrset: 4 variables, 2 cases
  $ mrset variables p.mrset
  Variables
  
  Name   Type             Label  Value labels
  -----  ---------------  -----  ------------
  id     numeric
  name   string, 5 bytes
  score  numeric
  empty  string, 1 byte

From standard input, named so; from where it stands.

  $ cat plain.csv | mrset import - piped.mrset; mrset import - stood.mrset < plain.csv
  piped.mrset: 4 variables, 2 cases
  stood.mrset: 4 variables, 2 cases
  $ { read -r; mrset import - rest.mrset; } < <(echo a line before; cat plain.csv)
  rest.mrset: 4 variables, 2 cases
  $ { echo a line before; cat plain.csv; } > behind.csv; { read -r; mrset import - behind.mrset; } < behind.csv
  behind.mrset: 4 variables, 2 cases
  $ for name in piped stood rest behind; do for table in variable block; do sqlite3 $name.mrset "SELECT * FROM $table" | cmp - <(sqlite3 p.mrset "SELECT * FROM $table"); done; done
  $ printf 'a,b\n1\n' | mrset import - x.mrset
  mrset: standard input, line 2: 1 cell where the header has 2.
  [2]
  $ mrset import - x.mrset < /dev/null
  mrset: standard input is empty: there is no header row.
  [2]
  $ mrset import - x.mrset < .
  mrset: standard input is a directory.
  [2]
  $ mrset import - x.mrset <&-
  mrset: standard input is empty: there is no header row.
  [2]

A dataset that exists is refused.

  $ cp p.mrset before.mrset
  $ mrset import plain.csv p.mrset
  mrset: p.mrset already exists; --replace replaces its variables and cases and keeps its sets.
  [2]
  $ cmp p.mrset before.mrset
  $ : > none.mrset; mrset import plain.csv none.mrset
  mrset: none.mrset already exists and is not a readable dataset; give another name.
  [2]
  $ echo text > t.txt; mrset import plain.csv t.txt; cat t.txt
  mrset: t.txt already exists and is not a readable dataset; give another name.
  text

--replace keeps the sets; what lost its variables shows it.

  $ small s.mrset
  $ mrset run s.mrset -c 'MRSET /MDGROUP NAME=$drinks VARIABLES=q1 q2 q3 VALUE=1 CATEGORYLABELS=COUNTEDVALUES /MCGROUP NAME=$colours VARIABLES=t1 t2'
  1> MRSET /MDGROUP NAME=$drinks VARIABLES=q1 q2 q3 VALUE=1 CATEGORYLABELS=COUNTEDVALUES /MCGROUP NAME=$colours VARIABLES=t1 t2
  $ printf 'q2,q4\n1,1\n' > wave2.csv
  $ mrset import --replace wave2.csv s.mrset
  s.mrset: 2 variables, 1 case
  mrset: The set $drinks has the variable q1, which no longer exists.
  mrset: The set $drinks takes its category labels from the counted value 1, which has no label in the variable q2.
  mrset: The set $drinks has the variable q3, which no longer exists.
  mrset: The set $colours has the variable t1, which no longer exists.
  mrset: The set $colours has the variable t2, which no longer exists.
  $ mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL'
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name      Label  Coded As     Counted Value  Data Type  Elementary Variables
  --------  -----  -----------  -------------  ---------  --------------------
  $colours         Categories   N/A            Unknown    t1(no longer exists)
                                                          t2(no longer exists)
  
  $drinks          Dichotomies  1 [a]          Numeric    q1(no longer exists)
                                                          q2
                                                          q3(no longer exists)
  
  [a] Using variable value labels
  $ mrset import --replace wave2.csv new.mrset
  new.mrset: 2 variables, 1 case
  $ mrset import --replace wave2.csv t.txt
  mrset: t.txt is not a dataset.
  [2]

Data that cannot be used: one sentence, exit status 2, no dataset, nothing else left behind.

  $ mkdir bad && cd bad
  $ try() { mrset import "$@" x.mrset; echo "exit $?"; }
  $ try missing.csv
  mrset: missing.csv does not exist.
  exit 2
  $ try .
  mrset: . is a directory.
  exit 2
  $ : > empty.csv; try empty.csv
  mrset: empty.csv is empty: there is no header row.
  exit 2
  $ printf 'a,b\n1,"2\n' > open.csv; try open.csv
  mrset: open.csv, line 2: the quote that opens here is not closed before the end of the file.
  exit 2
  $ printf 'a,b\n1,2"3\n' > stray.csv; try stray.csv
  mrset: stray.csv, line 2: there is a stray quote: a cell that contains quotes is quoted as a whole and each of them doubled.
  exit 2
  $ printf 'a,b\n1,2\n1,2,3\n' > long.csv; try long.csv
  mrset: long.csv, line 3: 3 cells where the header has 2.
  exit 2
  $ printf 'a,b\n1\n' > short.csv; try short.csv
  mrset: short.csv, line 2: 1 cell where the header has 2.
  exit 2
  $ printf 'a,b\n1,\377\n' > latin.csv; try latin.csv
  mrset: latin.csv, line 2: the text is not valid UTF-8.
  exit 2
  $ printf 'a,b\n1,\0\n' > nul.csv; try nul.csv
  mrset: nul.csv, line 2: there is a NUL byte.
  exit 2
  $ printf 'a,b,A\n1,2,3\n' > twice.csv; try twice.csv
  mrset: twice.csv, column 3: duplicate name "A" (also column 1).
  exit 2
  $ printf 'a,,b\n1,2,3\n' > unnamed.csv; try unnamed.csv
  mrset: unnamed.csv, column 2: "" is not a valid variable name.
  exit 2
  $ printf 'a,$b\n1,2\n' > dollar.csv; try dollar.csv
  mrset: dollar.csv, column 2: "$b" is not a valid variable name.
  exit 2
  $ printf 'a,all\n1,2\n' > reserved.csv; try reserved.csv
  mrset: reserved.csv, column 2: "all" is not a valid variable name.
  exit 2
  $ printf 'a,%064d\n1,2\n' 0 > digit.csv; try digit.csv
  mrset: digit.csv, column 2: "000000000000000000000000000000000000000000000000000000000000..." is not a valid variable name.
  exit 2

Codebooks that cannot be used.

  $ printf 'a,b\n1,x\n' > ok.csv
  $ codebook() { printf '%s' "$1" > c.json; try --schema c.json ok.csv; }
  $ try --schema missing.json ok.csv
  mrset: missing.json does not exist.
  exit 2
  $ codebook '{"fields": ['
  mrset: c.json, line 1: this is not JSON (byte 13).
  exit 2
  $ codebook '[]'
  mrset: c.json is not a Table Schema: it has no array "fields".
  exit 2
  $ codebook "{\"fields\": $(printf '[%.0s' {1..50000})$(printf ']%.0s' {1..50000})}"
  mrset: c.json is nested deeper than 64 levels.
  exit 2
  $ codebook '{"fields": [{"type": "integer"}]}'
  mrset: c.json, field 1: it has no name.
  exit 2
  $ codebook '{"fields": [{"name": "a", "type": "geopoint"}]}'
  mrset: c.json, field "a": the type "geopoint" is not supported; with the type "string" the values are kept as text.
  exit 2
  $ codebook '{"fields": [{"name": "c", "type": "integer"}]}'
  mrset: c.json, field "c": ok.csv has no such column.
  exit 2
  $ codebook '{"fields": [{"name": "a"}, {"name": "a"}]}'
  mrset: c.json, field "a": the name occurs twice.
  exit 2
  $ codebook '{"fields": [{"name": "a", "type": "integer", "categories": [{"value": 1, "label": "x"}, {"value": 1, "label": "y"}]}]}'
  mrset: c.json, field "a": the value "1" is labelled twice.
  exit 2
  $ codebook '{"fields": [{"name": "a", "type": "integer", "categories": ["one"]}]}'
  mrset: c.json, field "a": the category "one" does not fit the type integer.
  exit 2
  $ codebook '{"fields": [{"name": "b", "type": "string", "constraints": {"maxLength": 0}}]}'
  mrset: c.json, field "b": its maxLength is not a whole number from 1 to 2147483647.
  exit 2
  $ codebook '{"fields": [{"name": "b", "type": "integer"}]}'
  mrset: ok.csv, line 2, column b: "x" is not a number.
  exit 2
  $ printf 'a,b\n1,xyz\n' > ok.csv
  $ codebook '{"fields": [{"name": "b", "type": "string", "constraints": {"maxLength": 2}}]}'
  mrset: ok.csv, line 2, column b: the value has 3 characters where the codebook allows 2.
  exit 2
  $ ls
  c.json
  digit.csv
  dollar.csv
  empty.csv
  latin.csv
  long.csv
  nul.csv
  ok.csv
  open.csv
  reserved.csv
  short.csv
  stray.csv
  twice.csv
  unnamed.csv

An unwritable place.

  $ mrset import ok.csv no/such/x.mrset
  mrset: no/such/x.mrset cannot be written: No such file or directory.
  [2]
  $ mrset import ok.csv ..
  mrset: .. already exists and is not a readable dataset; give another name.
  [2]
