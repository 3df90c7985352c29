Sets that no command makes, in a file that something else has written. They are shown, and what is wrong with them is told.

  $ . "$TESTDIR/setup.sh"
  $ make() { rm -f s.mrset; small s.mrset; mrset run s.mrset -c 'MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1 /MCGROUP NAME=$b VARIABLES=t1 t2' > /dev/null 2>&1; }
  $ small other.mrset
  $ strange() { make; sqlite3 s.mrset "$1"; }

  $ strange "UPDATE mr_set SET label = 'two' || char(10) || 'lines' WHERE name = '\$b'; UPDATE mr_set SET counted_value = 'x' WHERE name = '\$a'; DELETE FROM mr_set_variable WHERE set_id = 2"
  $ mrset sets s.mrset
  Multiple response sets
  
  Name  Type       Label  Counted value  Variables
  ----  ---------  -----  -------------  ---------
  $a    dichotomy         x              q1
                                         q2
  
  $b    category   two
                   lines
  
  The set $a counts x in numeric variables, which is not a number.
  The set $b has a label with a line end.
  The set $b has no variables.
  $ mrset sets --format markdown s.mrset
  **Multiple response sets**
  
  | Name | Type | Label | Counted value | Variables |
  | --- | --- | --- | --- | --- |
  | \$a | dichotomy |  | x | q1<br>q2 |
  | \$b | category | two<br>lines |  |  |
  
  The set \$a counts x in numeric variables, which is not a number.
  
  The set \$b has a label with a line end.
  
  The set \$b has no variables.
  $ mrset sets --format json s.mrset
  {"sets":[{"name":"$a","type":"dichotomy","label":"","countedValue":"x","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["q1","q2"],"problems":["The set $a counts x in numeric variables, which is not a number."]},{"name":"$b","type":"category","label":"two\nlines","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":[],"problems":["The set $b has a label with a line end.","The set $b has no variables."]}]}
  $ mrset sets --format csv s.mrset 2>&1 | tr -d '\r'
  Name,Type,Label,Counted value,Variables
  $a,dichotomy,,x,"q1
  q2"
  $b,category,"two
  lines",,
  mrset: The set $a counts x in numeric variables, which is not a number.
  mrset: The set $b has a label with a line end.
  mrset: The set $b has no variables.

A sound set has no note, nor a member "problems":

  $ strange ''; mrset sets --format json s.mrset
  {"sets":[{"name":"$a","type":"dichotomy","label":"","countedValue":"1","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["q1","q2"]},{"name":"$b","type":"category","label":"","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["t1","t2"]}]}

Ten notes of a set, and how many others there are:

  $ strange "INSERT INTO mr_set_variable SELECT 1, 2 + value, 'v' || value FROM generate_series(0, 11)"; mrset sets s.mrset | tail -11
  The set $a has the variable v0, which no longer exists.
  The set $a has the variable v1, which no longer exists.
  The set $a has the variable v2, which no longer exists.
  The set $a has the variable v3, which no longer exists.
  The set $a has the variable v4, which no longer exists.
  The set $a has the variable v5, which no longer exists.
  The set $a has the variable v6, which no longer exists.
  The set $a has the variable v7, which no longer exists.
  The set $a has the variable v8, which no longer exists.
  The set $a has the variable v9, which no longer exists.
  The set $a has 2 more problems.

Where the variables cannot be read, the sets are shown all the same:

  $ strange 'PRAGMA ignore_check_constraints = ON; UPDATE meta SET variable_count = -1'; mrset sets s.mrset
  Multiple response sets
  
  Name  Type       Label  Counted value  Variables
  ----  ---------  -----  -------------  ---------
  $a    dichotomy         1              q1
                                         q2
  
  $b    category                         t1
                                         t2
  
  The variables of the set $a cannot be read: s.mrset is damaged.

Every command ends with an answer:

  $ commands() {
  >   for command in sets variables log script check undo; do cp s.mrset x.mrset; mrset $command x.mrset > out 2>&1; echo -n "$command $? "; done
  >   mrset diff s.mrset other.mrset > out 2>&1; echo -n "diff $? "
  >   cp other.mrset to.mrset; mrset copy s.mrset to.mrset > out 2>&1; echo -n "copy $? "
  >   mrset check to.mrset > /dev/null; echo -n "its target $? "
  >   mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' > out 2>&1; echo "run $?"; cat out
  > }
  $ strange "DELETE FROM mr_set_variable"; commands
  sets 0 variables 0 log 0 script 1 check 1 undo 0 diff 1 copy 1 its target 0 run 0
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label  Coded As     Counted Value  Data Type  Elementary Variables
  ----  -----  -----------  -------------  ---------  --------------------
  $a           Dichotomies  1              Unknown
  $b           Categories   N/A            Unknown
  $ strange "DELETE FROM mr_set_variable WHERE ordinal > 0"; commands
  sets 0 variables 0 log 0 script 1 check 1 undo 0 diff 1 copy 1 its target 0 run 0
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label  Coded As     Counted Value  Data Type  Elementary Variables
  ----  -----  -----------  -------------  ---------  --------------------
  $a           Dichotomies  1              Numeric    Tea
  $b           Categories   N/A            String     First colour
  $ strange "UPDATE mr_set_variable SET name = 'Q1'"; commands
  sets 0 variables 0 log 0 script 1 check 1 undo 0 diff 1 copy 1 its target 0 run 0
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label  Coded As     Counted Value  Data Type  Elementary Variables
  ----  -----  -----------  -------------  ---------  --------------------
  $a           Dichotomies  1              Numeric    Tea
                                                      Tea
  
  $b           Categories   N/A            Numeric    Tea
                                                      Tea
  $ strange "UPDATE mr_set_variable SET name = ''"; commands
  sets 0 variables 0 log 0 script 1 check 1 undo 0 diff 1 copy 1 its target 0 run 0
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label  Coded As     Counted Value  Data Type  Elementary Variables
  ----  -----  -----------  -------------  ---------  --------------------
  $a           Dichotomies  1              Unknown    (no longer exists)
                                                      (no longer exists)
  
  $b           Categories   N/A            Unknown    (no longer exists)
                                                      (no longer exists)
  $ strange "UPDATE mr_set SET counted_value = ''"; commands
  sets 0 variables 0 log 0 script 1 check 1 undo 0 diff 1 copy 1 its target 0 run 0
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label  Coded As     Counted Value  Data Type  Elementary Variables
  ----  -----  -----------  -------------  ---------  --------------------
  $a           Dichotomies                 Numeric    Tea
                                                      Coffee
  
  $b           Categories   N/A            String     First colour
                                                      t2
  $ strange "UPDATE mr_set SET counted_value = '1' || char(10)"; commands
  sets 0 variables 0 log 0 script 1 check 1 undo 0 diff 1 copy 1 its target 0 run 0
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label  Coded As     Counted Value  Data Type  Elementary Variables
  ----  -----  -----------  -------------  ---------  --------------------
  $a           Dichotomies  1              Numeric    Tea
                                                      Coffee
  
  $b           Categories   N/A            String     First colour
                                                      t2
  $ strange "UPDATE mr_set SET label = printf('%300s', 'x')"; commands
  sets 0 variables 0 log 0 script 1 check 1 undo 0 diff 1 copy 1 its target 0 run 0
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label                          Coded As     Counted  Data     Elementary
                                                    Value    Type     Variables
  ----  -----------------------------  -----------  -------  -------  ------------
  $a                                   Dichotomies  1        Numeric  Tea
        x                                                             Coffee
  
  $b                                   Categories   N/A      String   First colour
        x                                                             t2
  $ strange "UPDATE mr_set SET label_from_variable = 1"; commands
  sets 0 variables 0 log 0 script 1 check 1 undo 0 diff 1 copy 1 its target 0 run 0
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label                 Coded As     Counted  Data     Elementary
                                           Value    Type     Variables
  ----  --------------------  -----------  -------  -------  ------------
  $a    (use variable label)  Dichotomies  1        Numeric  Tea
                                                             Coffee
  
  $b    (use variable label)  Categories   N/A      String   First colour
                                                             t2
  $ strange "UPDATE mr_set SET name = '', name_key = '' WHERE id = 1"; commands
  sets 0 variables 0 log 0 script 1 check 1 undo 0 diff 1 copy 1 its target 0 run 0
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label  Coded As     Counted Value  Data Type  Elementary Variables
  ----  -----  -----------  -------------  ---------  --------------------
               Dichotomies  1              Numeric    Tea
                                                      Coffee
  
  $b           Categories   N/A            String     First colour
                                                      t2
  $ strange "UPDATE mr_set_variable SET name = 'q3' WHERE ordinal = 0"; commands
  sets 0 variables 0 log 0 script 1 check 0 undo 0 diff 1 copy 0 its target 0 run 0
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label  Coded As     Counted Value  Data Type  Elementary Variables
  ----  -----  -----------  -------------  ---------  --------------------
  $a           Dichotomies  1              Numeric    q3
                                                      Coffee
  
  $b           Categories   N/A            Numeric    q3
                                                      t2
  $ strange "INSERT INTO value_label VALUES (5, 0, 'a', 'A'), (5, 1, 'a', 'B')"; commands
  sets 0 variables 0 log 0 script 0 check 1 undo 0 diff 1 copy 0 its target 0 run 0
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name  Label  Coded As     Counted Value  Data Type  Elementary Variables
  ----  -----  -----------  -------------  ---------  --------------------
  $a           Dichotomies  1              Numeric    Tea
                                                      Coffee
  
  $b           Categories   N/A            String     First colour
                                                      t2

A faulty set is not copied:

  $ strange "DELETE FROM mr_set_variable WHERE set_id = 1; UPDATE mr_set SET label_from_variable = 1 WHERE id = 1"; mrset copy s.mrset other.mrset
  mrset: The set $a cannot be copied: it takes its label from a variable but not its category labels from the counted value; it has no variables.
  mrset: Nothing is copied; --skip-incomplete copies the other sets.
  [1]
  $ mrset copy --skip-incomplete s.mrset other.mrset
  $a: left out
  $b: added
  mrset: The set $a cannot be copied: it takes its label from a variable but not its category labels from the counted value; it has no variables.
  [1]
