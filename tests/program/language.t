The command language, as a user meets it.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset

Keywords, the command name too, in any case and by their first letters, three at least.

  $ mrset run s.mrset -c 'mrs /mdg nam=$a lab="x" var=q1 q2 val=1 cat=cou labels=varl /dis nam=[$A]'
  1> mrs /mdg nam=$a lab="x" var=q1 q2 val=1 cat=cou labels=varl /dis nam=[$A]
  
  Multiple Response Sets
  
  Name  Label                 Coded As     Counted  Data     Elementary
                                           Value    Type     Variables
  ----  --------------------  -----------  -------  -------  ----------
  $a    (use variable label)  Dichotomies  1 [a]    Numeric  q1
                                                             q2
  
  [a] Using variable value labels
  $ mrset run s.mrset -c 'MR /DISPLAY NAME=ALL' -c 'MRSET /DI NAME=ALL' -c 'MRSETS /DISPLAY NAME=ALL'
  1> MR /DISPLAY NAME=ALL
  Error: Line 1: MR is not a command. The commands here are MRSET and TABULATE.
    -c 1, line 1, column 1:
      MR /DISPLAY NAME=ALL
      ^^
  hint: did you mean MRSET?
  
  2> MRSET /DI NAME=ALL
  Error: Invalid MRSET subcommand. Found DI ..
    -c 2, line 1, column 8:
      MRSET /DI NAME=ALL
             ^^
  hint: did you mean DISPLAY?
  
  3> MRSETS /DISPLAY NAME=ALL
  Error: Line 1: MRSETS is not a command. The commands here are MRSET and TABULATE.
    -c 3, line 1, column 1:
      MRSETS /DISPLAY NAME=ALL
      ^^^^^^
  hint: did you mean MRSET?
  [1]

A command ends at a period that is the last thing on its line, at a blank line, or at the end; comments are blanks.

  $ cat > ends.script <<'SCRIPT'
  > MRSET /DELETE NAME=[$q.1]. /* a period within a name ends nothing
  > MRSET /DELETE /* here */ NAME=[$b]
  > 
  > MRSET /DELETE
  >   NAME=[$c].   
  > * MRSET /DELETE
  >   NAME=[$never].
  > MRSET /MDGROUP NAME=$v VARIABLES=q1 q2 VALUE=1.
  > MRSET /DELETE NAME=[$d]
  > SCRIPT
  $ mrset run s.mrset ends.script
  1> MRSET /DELETE NAME=[$q.1]
  Warning: $q.1 MRSET can not be found in the dataset.
    ends.script, line 1, column 21:
      MRSET /DELETE NAME=[$q.1]. /* a period within a name ends nothing
                          ^^^^
  
  2> MRSET /DELETE /* here */ NAME=[$b]
  Warning: $b MRSET can not be found in the dataset.
    ends.script, line 2, column 32:
      MRSET /DELETE /* here */ NAME=[$b]
                                     ^^
  
  3> MRSET /DELETE
     NAME=[$c]
  Warning: $c MRSET can not be found in the dataset.
    ends.script, line 5, column 9:
        NAME=[$c].   
              ^^
  
  4> MRSET /MDGROUP NAME=$v VARIABLES=q1 q2 VALUE=1
  Warning: CountVal 1 label different in the variables.
    ends.script, line 8, column 46:
      MRSET /MDGROUP NAME=$v VARIABLES=q1 q2 VALUE=1.
                                                   ^
  hint: the variables of $v label 1 differently, so each label may be an answer: CATEGORYLABELS=COUNTEDVALUES names the answers by these labels
  
  5> MRSET /DELETE NAME=[$d]
  Warning: $d MRSET can not be found in the dataset.
    ends.script, line 9, column 21:
      MRSET /DELETE NAME=[$d]
                          ^^
  $ mrset sets s.mrset --format json
  {"sets":[{"name":"$a","type":"dichotomy","label":"x","countedValue":"1","labelFromVariable":true,"categoryLabelsFromCountedValue":true,"variables":["q1","q2"]},{"name":"$v","type":"dichotomy","label":"","countedValue":"1","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["q1","q2"]}]}

Quoted strings, in either quote, a doubled one standing for one.

  $ mrset run s.mrset -c "MRSET /MCGROUP NAME=\$l LABEL='It''s \"so\"' VARIABLES=t1 t2 /DISPLAY NAME=[\$l]"
  1> MRSET /MCGROUP NAME=$l LABEL='It''s "so"' VARIABLES=t1 t2 /DISPLAY NAME=[$l]
  
  Multiple Response Sets
  
  Name  Label      Coded As    Counted Value  Data Type  Elementary Variables
  ----  ---------  ----------  -------------  ---------  --------------------
  $l    It's "so"  Categories  N/A            String     First colour
                                                         t2
  $ mrset run s.mrset -c 'MRSET /MCGROUP NAME=$l LABEL="a/*b" VARIABLES=t1 t2 /DELETE NAME=[$l]'
  1> MRSET /MCGROUP NAME=$l LABEL="a/*b" VARIABLES=t1 t2 /DELETE NAME=[$l]

Variable lists: errors name the culprit.

  $ for list in 'q1 TO n1' 'q1 nosuch' 'q3 TO q1' 'q1 TO' 'TO q1' 'q1 q2 Q1' 'q1 TO q3 q2' '' 'ALL'; do
  >   mrset run s.mrset -c "MRSET /MDGROUP NAME=\$x VALUE=1 VARIABLES=$list"
  > done
  1> MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1 TO n1
  Warning: CountVal 1 label different in the variables.
    -c 1, line 1, column 30:
      MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1 TO n1
                                   ^
  Warning: CountVal 1 label different in the variables.
  hint: no case has chosen n1 of $x
  1> MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1 nosuch
  Error: The variable nosuch is not in the dataset.
    -c 1, line 1, column 45:
      MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1 nosuch
                                                  ^^^^^^
  1> MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q3 TO q1
  Error: The range q3 TO q1 is reversed: q3 comes after q1 in the dataset.
    -c 1, line 1, column 42:
      MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q3 TO q1
                                               ^^
  1> MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1 TO
  Error: The range q1 TO has no end.
    -c 1, line 1, column 45:
      MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1 TO
                                                  ^^
  1> MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=TO q1
  Error: The range TO q1 has no beginning.
    -c 1, line 1, column 42:
      MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=TO q1
                                               ^^
  1> MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1 q2 Q1
  Error: The variable q1 is listed twice.
    -c 1, line 1, column 48:
      MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1 q2 Q1
                                                     ^^
  1> MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1 TO q3 q2
  Error: The variable q2 is listed twice.
    -c 1, line 1, column 51:
      MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1 TO q3 q2
                                                        ^^
  1> MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=
  Error: MDGROUP $x has no variable names.
    -c 1, line 1, column 21:
      MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=
                          ^^
  1> MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=ALL
  Error: Unexpected ALL keyword in MDGROUP subcommand.
    -c 1, line 1, column 42:
      MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=ALL
                                               ^^^
  [1]

A string list ends at the first thing that is no word.

  $ mrset run s.mrset -c "MRSET /MDGROUP NAME=\$x VALUE=1 VARIABLES=q1, q2"
  1> MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1, q2
  Error: Unexpected , keyword in MDGROUP subcommand.
    -c 1, line 1, column 44:
      MRSET /MDGROUP NAME=$x VALUE=1 VARIABLES=q1, q2
                                                 ^
  hint: separate names and keywords by blanks, not commas
  [1]

Names.

  $ for name in '$x.' '$1' '$' '$ALL' '$to' 'x' '$x$y' '$é' "\$$(printf 'n%.0s' {1..63})" "\$$(printf 'n%.0s' {1..64})"; do
  >   mrset run s.mrset -c "MRSET /MCGROUP NAME=$name VARIABLES=t1 t2"
  > done
  1> MRSET /MCGROUP NAME=$x. VARIABLES=t1 t2
  Error: The MRSET name $x. is invalid
    -c 1, line 1, column 21:
      MRSET /MCGROUP NAME=$x. VARIABLES=t1 t2
                          ^^^
  hint: a period ends a command only at the end of a line
  1> MRSET /MCGROUP NAME=$1 VARIABLES=t1 t2
  Error: The MRSET name $1 is invalid
    -c 1, line 1, column 21:
      MRSET /MCGROUP NAME=$1 VARIABLES=t1 t2
                          ^^
  1> MRSET /MCGROUP NAME=$ VARIABLES=t1 t2
  Error: The MRSET name $ is invalid
    -c 1, line 1, column 21:
      MRSET /MCGROUP NAME=$ VARIABLES=t1 t2
                          ^
  1> MRSET /MCGROUP NAME=$ALL VARIABLES=t1 t2
  Error: The MRSET name $ALL is invalid
    -c 1, line 1, column 21:
      MRSET /MCGROUP NAME=$ALL VARIABLES=t1 t2
                          ^^^^
  1> MRSET /MCGROUP NAME=$to VARIABLES=t1 t2
  Error: The MRSET name $to is invalid
    -c 1, line 1, column 21:
      MRSET /MCGROUP NAME=$to VARIABLES=t1 t2
                          ^^^
  1> MRSET /MCGROUP NAME=x VARIABLES=t1 t2
  Error: The MRSET name x must start with $.
    -c 1, line 1, column 21:
      MRSET /MCGROUP NAME=x VARIABLES=t1 t2
                          ^
  1> MRSET /MCGROUP NAME=$x$y VARIABLES=t1 t2
  1> MRSET /MCGROUP NAME=$\xc3\xa9 VARIABLES=t1 t2 (esc)
  1> MRSET /MCGROUP NAME=$nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn VARIABLES=t1 t2
  1> MRSET /MCGROUP NAME=$nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn VARIABLES=t1 t2
  Error: The MRSET name $nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn has more than 8 chars length
    -c 1, line 1, column 21:
      ...E=$nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn VA...
           ^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^
  [1]
  $ mrset sets s.mrset --format json
  {"sets":[{"name":"$a","type":"dichotomy","label":"x","countedValue":"1","labelFromVariable":true,"categoryLabelsFromCountedValue":true,"variables":["q1","q2"]},{"name":"$v","type":"dichotomy","label":"","countedValue":"1","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["q1","q2"]},{"name":"$x","type":"dichotomy","label":"","countedValue":"1","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["q1","q2","q3","n1"]},{"name":"$x$y","type":"category","label":"","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["t1","t2"]},{"name":"$\xc3\xa9","type":"category","label":"","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["t1","t2"]},{"name":"$nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn","type":"category","label":"","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["t1","t2"]}]} (esc)

What is no command is an error with its line, and the next one runs.

  $ printf 'MRSET /DISPLAY\n NAME=[$a\0].\nMRSET /MCGROUP NAME=$a\n  LABEL="open\n VARIABLES=t1 t2.\nMRSET /DELETE NAME=[\303].\n/DISPLAY NAME=ALL.\n5.\nMRSET /DISPLAY NAME=[$a].\n' > bad.script
  $ mrset run s.mrset bad.script
  1> MRSET /DISPLAY
     NAME=[$a\x00]
  Error: Line 2: The command holds a NUL character.
    bad.script, line 2, column 10:
       NAME=[$a\x00].
               ^^^^
  
  2> MRSET /MCGROUP NAME=$a
     LABEL="open
     VARIABLES=t1 t2
  Error: Line 4: A string is not closed on its line.
    bad.script, line 4, column 9:
        LABEL="open
              ^^^^^
  
  3> MRSET /DELETE NAME=[\xef\xbf\xbd] (esc)
  Error: Line 6: The command is not valid UTF-8.
    bad.script, line 6, column 21:
      MRSET /DELETE NAME=[\xef\xbf\xbd]. (esc)
                          ^
  
  4> /DISPLAY NAME=ALL
  Error: Line 7: / is not a command. The commands here are MRSET and TABULATE.
    bad.script, line 7, column 1:
      /DISPLAY NAME=ALL.
      ^
  
  5> 5
  Error: Line 8: 5 is not a command. The commands here are MRSET and TABULATE.
    bad.script, line 8, column 1:
      5.
      ^
  
  6> MRSET /DISPLAY NAME=[$a]
  
  Multiple Response Sets
  
  Name  Label                 Coded As     Counted  Data     Elementary
                                           Value    Type     Variables
  ----  --------------------  -----------  -------  -------  ----------
  $a    (use variable label)  Dichotomies  1 [a]    Numeric  q1
                                                             q2
  
  [a] Using variable value labels
  [1]

Text in UTF-8: names are the same without regard to case, a label is cut at a character.

  $ mrset run s.mrset -c 'MRSET /MCGROUP NAME=$été VARIABLES=t1 t2 /MCGROUP NAME=$ÉTÉ VARIABLES=t2 t1 /DELETE NAME=[$Été]'
  1> MRSET /MCGROUP NAME=$\xc3\xa9t\xc3\xa9 VARIABLES=t1 t2 /MCGROUP NAME=$\xc3\x89T\xc3\x89 VARIABLES=t2 t1 /DELETE NAME=[$\xc3\x89t\xc3\xa9] (esc)
  $ long=$(printf 'é%.0s' {1..128})
  $ mrset run s.mrset -c "MRSET /MCGROUP NAME=\$long LABEL='$long' VARIABLES=t1 t2" | grep Warning | cut -c 1-40
  Warning: The MRSET label \xc3\xa9\xc3\xa9\xc3\xa9\xc3\xa9\xc3\xa9\xc3\xa9\xc3\xa9\xc3 (esc)
  $ mrset sets s.mrset --format json | grep -o '"label":"é*"' | wc -c
  320

Nothing in a text acts on the terminal.

  $ mrset run s.mrset -c "MRSET /MCGROUP NAME=\$e LABEL='$(printf '\033[31mred\302\233\342\200\256')' VARIABLES=t1 t2 /DISPLAY NAME=[\$e]"
  1> MRSET /MCGROUP NAME=$e LABEL='\x1b[31mred\x9b\u202e' VARIABLES=t1 t2 /DISPLAY NAME=[$e]
  
  Multiple Response Sets
  
  Name  Label                  Coded As    Counted  Data    Elementary
                                           Value    Type    Variables
  ----  ---------------------  ----------  -------  ------  ------------
  $e    \x1b[31mred\x9b\u202e  Categories  N/A      String  First colour
                                                            t2

A line of 10 MB.

  $ { printf 'MRSET /MCGROUP NAME=$a VARIABLES='; head -c 10000000 /dev/zero | tr '\0' ' '; printf 't1 t2.\n'; } > long.script
  $ mrset run s.mrset long.script | wc -c
  10000042
  $ mrset sets s.mrset --format json | grep -c '"name":"$a"'
  1
