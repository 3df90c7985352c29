A check tells all that is not as it should be, a line each.

  $ . "$TESTDIR/setup.sh"
  $ make() { small s.mrset && mrset run s.mrset -c 'MRSET /MCGROUP NAME=$b VARIABLES=t1 t2 /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1' -c 'MRSET /DELETE NAME=[$b]' -c 'MRSET /MCGROUP NAME=$b VARIABLES=q1 q2 q3'; }
  $ damaged() { rm -f s.mrset; make > /dev/null; sqlite3 s.mrset "PRAGMA ignore_check_constraints = ON; $1"; mrset check s.mrset; }
  $ damaged ''
  s.mrset is sound.

The schema:

  $ damaged 'DROP TABLE value_label'
  mrset: s.mrset is damaged: the table value_label is missing.
  [2]
  $ damaged 'ALTER TABLE variable ADD COLUMN more TEXT'
  mrset: s.mrset is damaged: the table variable is not defined as it should be.
  [2]
  $ damaged 'CREATE TABLE t(x)'
  mrset: s.mrset is damaged: the table t does not belong to a dataset.
  [2]
  $ damaged 'CREATE VIEW v AS SELECT 1'
  mrset: s.mrset is damaged: the view v does not belong to a dataset.
  [2]
  $ damaged 'CREATE TRIGGER g AFTER INSERT ON block BEGIN SELECT 1; END'
  mrset: s.mrset is damaged: the trigger g does not belong to a dataset.
  [2]
  $ damaged 'CREATE INDEX i ON block(cells)'
  mrset: s.mrset is damaged: the index i does not belong to a dataset.
  [2]
  $ damaged "PRAGMA writable_schema = 1; INSERT INTO sqlite_schema VALUES ('table', 'virtual', 'virtual', 0, 'CREATE VIRTUAL TABLE virtual USING fts5(x)')"
  mrset: s.mrset is damaged: the table virtual does not belong to a dataset.
  [2]
  $ damaged 'ANALYZE'
  mrset: s.mrset is damaged: the table sqlite_stat1 does not belong to a dataset.
  [2]
  $ damaged "PRAGMA writable_schema = 1; UPDATE sqlite_schema SET sql = 'CREATE TABLE' WHERE name = 'block'"
  mrset: s.mrset is damaged.
  [2]

What a stranger's schema computes is never run, so it cannot go on for ever:

  $ rm -f s.mrset; breakfast s.mrset; sqlite3 s.mrset "PRAGMA writable_schema = 1; UPDATE sqlite_schema SET sql = replace(sql, 'label TEXT', 'label TEXT AS (printf(''%.*c'', 2000000000, ''x'') LIKE ''%y%z%'')') WHERE name = 'mr_set'"
  $ for command in sets check variables log; do timeout 10 mrset $command s.mrset; done
  mrset: s.mrset is damaged: the table mr_set is not defined as it should be.
  mrset: s.mrset is damaged: the table mr_set is not defined as it should be.
  mrset: s.mrset is damaged: the table mr_set is not defined as it should be.
  mrset: s.mrset is damaged: the table mr_set is not defined as it should be.
  [2]
  $ rm -f s.mrset; breakfast s.mrset; sqlite3 s.mrset "PRAGMA writable_schema = 1; UPDATE sqlite_schema SET sql = replace(sql, 'cells BLOB NOT NULL', 'cells BLOB NOT NULL CHECK (length(replace(hex(zeroblob(900000000)), ''00'', cells)) > 0)') WHERE name = 'block'"
  $ timeout 10 mrset check s.mrset
  mrset: s.mrset is damaged: the table block is not defined as it should be.
  [2]

  $ rm -f s.mrset; small s.mrset; sqlite3 s.mrset "PRAGMA writable_schema = 1; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) INSERT INTO sqlite_schema SELECT 'table', 't' || i, 't' || i, 2, 'CREATE TABLE t' || i || '(a)' FROM n"
  $ timeout 10 mrset sets s.mrset
  mrset: s.mrset is damaged.
  [2]
  $ rm -f s.mrset; small s.mrset; { echo 'PRAGMA encoding = "UTF-16le"; PRAGMA application_id = 1836217204; PRAGMA user_version = 3;'; sqlite3 s.mrset .dump; } | sqlite3 wide.mrset; mrset sets wide.mrset
  mrset: wide.mrset is damaged.
  [2]

The header and the dictionary:

  $ damaged 'UPDATE meta SET variable_count = 7, case_count = 0'
  The header counts 7 variables; there are 6.
  The header counts 0 cases; there are 2.
  s.mrset: 2 findings.
  [1]
  $ damaged "UPDATE variable SET name = '1st' WHERE position = 0"
  The variable at position 0 has an invalid name: 1st.
  The variable 1st is kept under the key Q1.
  s.mrset: 2 findings.
  [1]
  $ damaged "UPDATE variable SET name_key = 'Q9' WHERE position = 3"
  The variable n1 is kept under the key Q9.
  s.mrset: 1 finding.
  [1]
  $ damaged 'UPDATE variable SET width = -1 WHERE position = 4'
  The file is not sound: CHECK constraint failed in variable.
  The variable at position 4 has the width -1.
  s.mrset: 2 findings.
  [1]
  $ damaged 'UPDATE variable SET position = 9 WHERE position = 3'
  The position of a variable is 4 instead of 3.
  The position of a variable is 5 instead of 4.
  The position of a variable is 9 instead of 5.
  Block 0 of the variable at position 3 holds numbers; the variable is a string.
  Block 0 of the variable at position 5 holds texts; the variable is numeric.
  s.mrset: 5 findings.
  [1]
  $ damaged "UPDATE variable SET label = CAST(X'C3' AS TEXT) WHERE position = 1"
  The variable at position 1 has an invalid value.
  s.mrset: 1 finding.
  [1]
  $ damaged 'UPDATE value_label SET variable = 77 WHERE variable = 2'
  There is a value label of a variable at position 77, which does not exist.
  s.mrset: 1 finding.
  [1]
  $ damaged "UPDATE value_label SET value = 'one' WHERE variable = 2"
  The numeric variable at position 2 has a label of the value one, which is not a number.
  s.mrset: 1 finding.
  [1]
  $ damaged "UPDATE value_label SET value = '0.0' WHERE variable = 0; INSERT INTO value_label VALUES (4, 0, 'a', 'A'), (4, 1, 'a ', 'B'), (4, 2, 'a', 'C')"
  The variable at position 0 has two labels of the value 0.0.
  The variable at position 4 has two labels of the value a.
  s.mrset: 2 findings.
  [1]
  $ damaged 'UPDATE value_label SET ordinal = 5 WHERE variable = 0 AND ordinal = 1'
  The value labels of the variable at position 0 are not numbered one after another.
  s.mrset: 1 finding.
  [1]

The sets:

  $ damaged "UPDATE mr_set SET name = 'a' WHERE name = '\$a'"
  The set a is kept under the key $A.
  The set a has an invalid name.
  s.mrset: 2 findings.
  [1]
  $ damaged "UPDATE mr_set SET name_key = '\$B ' WHERE name = '\$b'"
  The set $b is kept under the key $B .
  s.mrset: 1 finding.
  [1]
  $ damaged 'UPDATE mr_set SET position = 1'
  Two sets have the position 1.
  s.mrset: 1 finding.
  [1]
  $ damaged 'UPDATE mr_set SET type = 3'
  The file is not sound: CHECK constraint failed in mr_set.
  The file is not sound: CHECK constraint failed in mr_set.
  The set with the number 2 has an invalid value.
  The set with the number 3 has an invalid value.
  The history cannot be read to the end.
  s.mrset: 5 findings.
  [1]
  $ damaged 'UPDATE mr_set SET label_from_variable = 2'
  The file is not sound: CHECK constraint failed in mr_set.
  The file is not sound: CHECK constraint failed in mr_set.
  The set $a has a flag that is neither 0 nor 1.
  The set $b has a flag that is neither 0 nor 1.
  The set $a takes its label from a variable but not its category labels from the counted value.
  The set $b is a category set with label options that only a dichotomy set can have.
  s.mrset: 6 findings.
  [1]
  $ damaged 'UPDATE mr_set_variable SET set_id = 77 WHERE ordinal = 2'
  There is a variable of the set with the number 77, which does not exist.
  The history cannot be read to the end.
  s.mrset: 2 findings.
  [1]
  $ damaged 'UPDATE mr_set_variable SET ordinal = 8 WHERE ordinal = 2'
  The variables of the set $b are not numbered one after another.
  s.mrset: 1 finding.
  [1]

What no command makes:

  $ damaged "DELETE FROM mr_set_variable WHERE set_id = 2; DELETE FROM mr_set_variable WHERE ordinal = 2; UPDATE mr_set_variable SET name = 'Q1' WHERE ordinal = 1"
  The set $a has no variables.
  The set $b has the variable Q1 more than once.
  s.mrset: 2 findings.
  [1]
  $ damaged "DELETE FROM mr_set_variable WHERE ordinal > 0; UPDATE mr_set SET label = printf('%300s', 'x') WHERE name = '\$a'; UPDATE mr_set SET label = 'two' || char(10) || 'lines', counted_value = '1' WHERE name = '\$b'"
  The set $a has a label of 300 bytes; the limit is 255.
  The set $a has only one variable.
  The set $b has only one variable.
  The set $b has a label with a line end.
  The set $b is a category set with a counted value.
  s.mrset: 5 findings.
  [1]
  $ damaged "UPDATE mr_set SET counted_value = '' WHERE name = '\$a'"
  The set $a is a dichotomy set without a counted value.
  s.mrset: 1 finding.
  [1]
  $ damaged "UPDATE mr_set SET counted_value = '1' || char(10) WHERE name = '\$a'"
  Remark: The set $a counts 1\n in numeric variables, which is not a number.
  The set $a has a counted value with a line end.
  s.mrset: 1 finding.
  [1]
  $ damaged "UPDATE mr_set_variable SET name = 'q ' WHERE ordinal = 2"
  Remark: The set $b has the variable q , which no longer exists.
  The set $b has a variable with an invalid name: q .
  s.mrset: 1 finding.
  [1]

The cases, whose blocks have the number of the block and the position of the variable in their id:

  $ damaged "UPDATE block SET cells = x'01' WHERE id = 0; UPDATE block SET head = CAST(x'00' || substr(head, 2) AS BLOB) WHERE id = 1"
  Block 0 of the variable at position 0 is not sound: the checksum of its cells is wrong.
  Block 0 of the variable at position 1 is not sound: the checksum of its head is wrong.
  s.mrset: 2 findings.
  [1]
  $ damaged "UPDATE block SET head = x'', cells = zeroblob(100000) WHERE id = 5"
  Block 0 of the variable at position 5 is not sound: it is too short.
  s.mrset: 1 finding.
  [1]
  $ damaged "UPDATE block SET head = (SELECT head FROM block WHERE id = 4), cells = (SELECT cells FROM block WHERE id = 4) WHERE id = 1"
  Block 0 of the variable at position 1 holds texts; the variable is numeric.
  s.mrset: 1 finding.
  [1]
  $ damaged "DELETE FROM block WHERE id IN (2, 3)"
  Block 0 of the cases has 4 of 6 variables.
  s.mrset: 1 finding.
  [1]
  $ damaged "UPDATE block SET id = id + 10 WHERE id = 5"
  There is a block of cases of a variable at position 15, which does not exist.
  Block 0 of the cases has 5 of 6 variables.
  s.mrset: 2 findings.
  [1]
  $ damaged "UPDATE block SET id = id + 5 * (1 << 32)"
  The number of a block of cases is 5 instead of 0.
  s.mrset: 1 finding.
  [1]
  $ damaged "INSERT INTO block SELECT id + (1 << 32), head, cells FROM block"
  The header counts 2 cases; there are 4.
  s.mrset: 1 finding.
  [1]
  $ damaged "UPDATE meta SET case_count = 9"
  The header counts 9 cases; there are 2.
  s.mrset: 1 finding.
  [1]
  $ damaged "DELETE FROM block"
  The header counts 2 cases; there are 0.
  s.mrset: 1 finding.
  [1]
  $ rm -f many.mrset; { echo q1; seq 1 3; } | mrset import - many.mrset; damaged "ATTACH 'many.mrset' AS many; UPDATE block SET head = (SELECT head FROM many.block), cells = (SELECT cells FROM many.block) WHERE id = 1"
  many.mrset: 1 variable, 3 cases
  Block 0 of the variable at position 1 has 3 cases; those of other variables have 2.
  s.mrset: 1 finding.
  [1]
  $ damaged "UPDATE variable SET width = 4 WHERE name = 't2'"
  Block 0 of the variable at position 5 has a text of 5 characters; the width of the variable is 4.
  s.mrset: 1 finding.
  [1]
  $ printf 't1\n\303\244\303\266\303\274\n' > wide.csv; echo '{"fields": [{"name": "t1", "constraints": {"maxLength": 3}}]}' > wide.json; rm -f wide.mrset; mrset import --schema wide.json wide.csv wide.mrset; mrset check wide.mrset
  wide.mrset: 1 variable, 1 case
  wide.mrset is sound.

Where cells are missing, nothing is said of counted values that no case has:

  $ uncounted() { damaged "UPDATE mr_set SET counted_value = '7' WHERE name = '\$a'; $1"; }
  $ uncounted ''
  Remark: The set $a counts the number 7, which no case has in its variables.
  s.mrset is sound.
  $ uncounted "DELETE FROM block WHERE id = 0"
  Block 0 of the cases has 5 of 6 variables.
  s.mrset: 1 finding.
  [1]
  $ uncounted "UPDATE block SET id = id + (1 << 32)"
  The number of a block of cases is 1 instead of 0.
  s.mrset: 1 finding.
  [1]
  $ uncounted "DELETE FROM block"
  The header counts 2 cases; there are 0.
  s.mrset: 1 finding.
  [1]

Nobody has a blank value:

  $ printf 'a,b\nx, \n ,y\n' > blank.csv; mrset import blank.csv blank.mrset; mrset run blank.mrset -c "MRSET /MDGROUP NAME=\$s VARIABLES=a b VALUE=' '" -c 'TABULATE $s /BASE=ALL' | grep -v '^$'; mrset check blank.mrset
  blank.mrset: 2 variables, 2 cases
  1> MRSET /MDGROUP NAME=$s VARIABLES=a b VALUE=' '
  hint: no case has the counted value   of $s: a has 'x'
  2> TABULATE $s /BASE=ALL
  $s
     Total
             % of
     Count  cases
  -  -----  -----
  a      0    0.0
  b      0    0.0
  Answered 0, none chosen 2, missing 0 of 2 cases.
  Base: 2 cases in all.
  The base is under 30 in 1 column: Total (2).
  Remark: The set $s counts the text  , which no case has in its variables.
  blank.mrset is sound.

Of one kind the first ten are told, and how many others there are:

  $ rm s.mrset; make > /dev/null; { echo q1,q2; seq -f '%g,0' 14; } > many.csv; mrset import --replace many.csv s.mrset
  s.mrset: 2 variables, 14 cases
  mrset: The set $b has the variable q3, which no longer exists.
  $ rm s.mrset; make > /dev/null; { seq -f 'q%g' -s, 14; seq -s, 14; } | mrset import --replace - s.mrset
  s.mrset: 14 variables, 1 case
  $ sqlite3 s.mrset "UPDATE block SET cells = x'01' WHERE id >= 3"
  $ mrset check s.mrset
  Block 0 of the variable at position 3 is not sound: the checksum of its cells is wrong.
  Block 0 of the variable at position 4 is not sound: the checksum of its cells is wrong.
  Block 0 of the variable at position 5 is not sound: the checksum of its cells is wrong.
  Block 0 of the variable at position 6 is not sound: the checksum of its cells is wrong.
  Block 0 of the variable at position 7 is not sound: the checksum of its cells is wrong.
  Block 0 of the variable at position 8 is not sound: the checksum of its cells is wrong.
  Block 0 of the variable at position 9 is not sound: the checksum of its cells is wrong.
  Block 0 of the variable at position 10 is not sound: the checksum of its cells is wrong.
  Block 0 of the variable at position 11 is not sound: the checksum of its cells is wrong.
  Block 0 of the variable at position 12 is not sound: the checksum of its cells is wrong.
  ... and 1 more such finding.
  s.mrset: 11 findings.
  [1]
  $ sqlite3 s.mrset "DELETE FROM block; UPDATE meta SET case_count = 0; INSERT INTO mr_set_variable SELECT id, 3 + value, 'v' || value FROM generate_series(0, 11), mr_set WHERE name = '\$b'"
  $ mrset check s.mrset
  Remark: The set $b has the variable v0, which no longer exists.
  Remark: The set $b has the variable v1, which no longer exists.
  Remark: The set $b has the variable v2, which no longer exists.
  Remark: The set $b has the variable v3, which no longer exists.
  Remark: The set $b has the variable v4, which no longer exists.
  Remark: The set $b has the variable v5, which no longer exists.
  Remark: The set $b has the variable v6, which no longer exists.
  Remark: The set $b has the variable v7, which no longer exists.
  Remark: The set $b has the variable v8, which no longer exists.
  Remark: The set $b has the variable v9, which no longer exists.
  Remark: ... and 2 more such remarks.
  s.mrset is sound.

The history:

  $ damaged 'DELETE FROM history WHERE number = 2'
  The changes are numbered 1 to 3, and there are 2.
  The history cannot be read to the end.
  s.mrset: 2 findings.
  [1]
  $ damaged 'DELETE FROM history_set WHERE history = 2'
  Change 2 changed nothing.
  The sets before change 1 cannot be rebuilt.
  s.mrset: 2 findings.
  [1]
  $ damaged 'UPDATE history_set SET set_id = 50 WHERE history = 3'
  The sets before change 3 cannot be rebuilt.
  s.mrset: 1 finding.
  [1]
  $ damaged "UPDATE history_set SET name = '\$a' WHERE history = 2"
  Before change 2 two sets have the same name or position.
  s.mrset: 1 finding.
  [1]
  $ damaged "UPDATE history_set SET variables = '[1]' WHERE history = 2"
  The sets before change 2 cannot be rebuilt.
  s.mrset: 1 finding.
  [1]
  $ damaged 'INSERT INTO history_set (history, set_id, kind, name) VALUES (9, 1, 1, 1)'
  Entries of the history that belong to no change: 1.
  s.mrset: 1 finding.
  [1]
  $ damaged "UPDATE history SET time = 'noon' WHERE number = 1"
  Change 1 has the invalid time noon.
  s.mrset: 1 finding.
  [1]

  $ damaged "UPDATE history_set SET name = 'no name' WHERE history = 2; UPDATE history_set SET name = '1' WHERE history = 3"
  Change 2 has a set with the invalid name no name.
  Change 3 has a set with the invalid name 1.
  s.mrset: 2 findings.
  [1]
  $ damaged "UPDATE history_set SET label = printf('%300s', 'x'), variables = '[\"q1\"]' WHERE history = 2"
  Before change 2 the history has an invalid set: $b has a label of 300 bytes; the limit is 255.
  Before change 2 the history has an invalid set: $b has only one variable.
  s.mrset: 2 findings.
  [1]

Counters at their limits:

  $ damaged 'UPDATE meta SET generation = 9007199254740991; UPDATE mr_set SET id = 9007199254740992, position = 9007199254740992 WHERE id = 3; UPDATE mr_set_variable SET set_id = 9007199254740992 WHERE set_id = 3; UPDATE history_set SET set_id = 9007199254740992 WHERE history = 3'
  s.mrset is sound.
  $ mrset run s.mrset -c 'MRSET /MCGROUP NAME=$c VARIABLES=q1 q2' && mrset sets --format csv s.mrset
  1> MRSET /MCGROUP NAME=$c VARIABLES=q1 q2
  Name,Type,Label,Counted value,Variables\r (esc)
  $a,dichotomy,,1,"q1
  q2"\r (esc)
  $b,category,,,"q1
  q2
  q3"\r (esc)
  $c,category,,,"q1
  q2"\r (esc)
  $ mrset check s.mrset
  The counter of writes is at its limit: the dataset cannot be changed.
  s.mrset: 1 finding.
  [1]
  $ mrset run s.mrset -c 'MRSET /DELETE NAME=ALL'
  mrset: s.mrset cannot be changed: its counter of writes is at its limit.
  [2]
  $ printf 'q1\n1\n' > one.csv; mrset import --replace one.csv s.mrset
  mrset: s.mrset cannot be changed: its counter of writes is at its limit.
  [2]
  $ mrset run s.mrset -c 'MRSET /DISPLAY NAME=[$a]'
  1> MRSET /DISPLAY NAME=[$a]
  
  Multiple Response Sets
  
  Name  Label  Coded As     Counted Value  Data Type  Elementary Variables
  ----  -----  -----------  -------------  ---------  --------------------
  $a           Dichotomies  1              Numeric    Tea
                                                      Coffee
  $ damaged 'UPDATE history SET number = number + 9007199254740989; UPDATE history_set SET history = history + 9007199254740989'
  The counter of changes is at its limit: the sets cannot be changed.
  s.mrset: 1 finding.
  [1]
  $ mrset undo s.mrset
  mrset: s.mrset cannot be changed: its counter of changes is at its limit.
  [2]

A set may have a variable that an import took away or changed: that is worth a remark.

  $ rm s.mrset; make > /dev/null; printf 'q1,q2\n1,2\n' > other.csv && mrset import --replace other.csv s.mrset
  s.mrset: 2 variables, 1 case
  mrset: The set $b has the variable q3, which no longer exists.
  $ mrset check s.mrset
  Remark: The set $b has the variable q3, which no longer exists.
  s.mrset is sound.
  $ mrset run s.mrset -c 'MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=100'
  1> MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=100
  hint: no case has the counted value 100 of $a: q1 has 1
  $ printf 'q1,q2\nx,1\n' > other.csv && mrset import --replace other.csv s.mrset && mrset check s.mrset
  s.mrset: 2 variables, 1 case
  mrset: The set $a counts 100, which is wider than the variable q1.
  mrset: The set $a has both numeric and string variables.
  mrset: The set $b has both numeric and string variables.
  mrset: The set $b has the variable q3, which no longer exists.
  Remark: The set $a counts 100, which is wider than the variable q1.
  Remark: The set $a has both numeric and string variables.
  Remark: The set $b has both numeric and string variables.
  Remark: The set $b has the variable q3, which no longer exists.
  s.mrset is sound.

The file itself:

  $ rm s.mrset; make > /dev/null; page=$(sqlite3 s.mrset "SELECT rootpage FROM sqlite_schema WHERE name = 'block'")
  $ printf '\377\377\377\377' | dd of=s.mrset bs=1 seek=$(( (page - 1) * 4096 )) conv=notrunc status=none
  $ mrset check s.mrset > found; echo $?; grep -c 'The file is not sound' found; tail -1 found
  1
  1
  s.mrset: 2 findings.

What is no dataset:

  $ mrset check missing.mrset
  mrset: missing.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv missing.mrset
  [2]
  $ echo text > text.mrset; mrset check text.mrset
  mrset: text.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  [2]
  $ sqlite3 other.mrset 'CREATE TABLE t(x)'; mrset check other.mrset
  mrset: other.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  [2]
  $ make > /dev/null 2>&1; sqlite3 s.mrset 'PRAGMA user_version = 4'; mrset check s.mrset
  mrset: s.mrset was made by a newer version of the program.
  [2]
