Where a message belongs, and what the host advises.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset

A script: tabs, wide and combining characters, a command of several lines, comments, line ends of two characters, a byte
order mark.

  $ cat > all.script <<'SCRIPT'
  > /* one */ MRSET /SHOW NAME=ALL. /* one */
  > MRSET
  > 	/MDGROUP NAME=$a	LABEL="x"	VARIABLS=q1 q2
  > 	VALUE=1.
  > MRSET /MCGROUP NAME=$été LABEL="日本語" VARIABLES=q1 été.
  > MRSET /* a
  >  /* SHOW */ /DISPLAY /* b */ NAME /* c
  >  /* d */ [$a].
  > MRSET /DISPLAY
  >   /* the end */
  > SCRIPT
  $ mrset run s.mrset all.script
  1> MRSET /SHOW NAME=ALL
  Error: Invalid MRSET subcommand. Found SHOW ..
    all.script, line 1, column 18:
      /* one */ MRSET /SHOW NAME=ALL. /* one */
                       ^^^^
  
  2> MRSET
     /MDGROUP NAME=$a LABEL="x" VARIABLS=q1 q2
     VALUE=1
  Error: Unexpected VARIABLS keyword in MDGROUP subcommand.
    all.script, line 3, column 29:
              /MDGROUP NAME=$a        LABEL="x"       VARIABLS=q1 q2
                                                      ^^^^^^^^
  hint: did you mean VARIABLES?
  
  3> MRSET /MCGROUP NAME=$\xc3\xa9t\xc3\xa9 LABEL="\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e" VARIABLES=q1 \xc3\xa9t\xc3\xa9 (esc)
  Error: The variable \xc3\xa9t\xc3\xa9 is not in the dataset. (esc)
    all.script, line 5, column 51:
      MRSET /MCGROUP NAME=$\xc3\xa9t\xc3\xa9 LABEL="\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e" VARIABLES=q1 \xc3\xa9t\xc3\xa9. (esc)
                                                           ^^^
  
  4> MRSET /* a
     /* SHOW */ /DISPLAY /* b */ NAME /* c
     /* d */ [$a]
  Error: Names "=" was expected. Found [...
    all.script, line 8, column 10:
       /* d */ [$a].
               ^
  hint: the keyword NAME must be followed by "="
  
  5> MRSET /DISPLAY
  Error: Empty Display found
    all.script, line 9, column 15:
      MRSET /DISPLAY
                    ^
  [1]
  $ printf '\357\273\277MRSET /SHOW.\r\nMRSET\r\n  /SHOW\r\n  NAME=ALL.\r\n' > windows.script
  $ mrset run s.mrset windows.script
  1> MRSET /SHOW
  Error: Invalid MRSET subcommand. Found SHOW ..
    windows.script, line 1, column 8:
      MRSET /SHOW.
             ^^^^
  
  2> MRSET
     /SHOW
     NAME=ALL
  Error: Invalid MRSET subcommand. Found SHOW ..
    windows.script, line 3, column 4:
        /SHOW
         ^^^^
  [1]

Standard input, and -c.

  $ printf '\n MRSET /SHOW.' | mrset run s.mrset - -c 'MRSET /DISPLAY NAME=ALL' -c 'MRSET
  >   /SHOW'
  1> MRSET /SHOW
  Error: Invalid MRSET subcommand. Found SHOW ..
    standard input, line 2, column 9:
       MRSET /SHOW.
              ^^^^
  
  2> MRSET /DISPLAY NAME=ALL
  Warning: No MRSET to display
  
  3> MRSET
     /SHOW
  Error: Invalid MRSET subcommand. Found SHOW ..
    -c 2, line 2, column 4:
        /SHOW
         ^^^^
  [1]

A long line is cut around the place.

  $ words=$(printf 'q1 TO q1 %.0s' {1..30})
  $ mrset run s.mrset -c "MRSET /MCGROUP LABEL='$(printf 'é%.0s' {1..50})' NAME=\$a VARIABLES=$words" | tail -n +2
  Error: The variable q1 is listed twice.
    -c 1, line 1, column 102:
      ...\xc3\xa9\xc3\xa9\xc3\xa9\xc3\xa9\xc3\xa9' NAME=$a VARIABLES=q1 TO q1 q1 TO q1 q1 TO q1 q1 TO q1 q1 TO q1 ... (esc)
                                           ^^
  [1]

A label that says what a message says is not what the message is about.

  $ mrset run s.mrset --dry-run -c 'MRSET /MDGROUP NAME=$d LABEL="t1" VARIABLES=q1 TO t2 VALUE=1' -c 'MRSET /MCGROUP NAME=$x VARIABLES=q1 q2 LABEL="$y" /DELETE NAME=[$y]'
  1> MRSET /MDGROUP NAME=$d LABEL="t1" VARIABLES=q1 TO t2 VALUE=1
  Warning: CountVal 1 label different in the variables.
    -c 1, line 1, column 60:
      MRSET /MDGROUP NAME=$d LABEL="t1" VARIABLES=q1 TO t2 VALUE=1
                                                                 ^
  Warning: CountVal 1 label different in the variables.
  Error: t1 variable has a different type.
    -c 1, line 1, column 8:
      MRSET /MDGROUP NAME=$d LABEL="t1" VARIABLES=q1 TO t2 VALUE=1
             ^^^^^^^
  
  2> MRSET /MCGROUP NAME=$x VARIABLES=q1 q2 LABEL="$y" /DELETE NAME=[$y]
  Warning: $y MRSET can not be found in the dataset.
    -c 2, line 1, column 65:
      MRSET /MCGROUP NAME=$x VARIABLES=q1 q2 LABEL="$y" /DELETE NAME=[$y]
                                                                      ^^
  Dry run: $x would be added.
  [1]

JSON: characters, from 1; a length of 0 is the end of the command.

  $ printf 'MRSET /MCGROUP NAME=$a LABEL="日本語" VARIABLES=q1 été.\nMRSET\n /DISLPAY.\nMRSET\n .' > json.script
  $ mrset run s.mrset json.script -c 'MRSET /DELETE NAME=ALL' --format json
  {"command":1,"line":1,"text":"MRSET /MCGROUP NAME=$a LABEL=\\"\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e\\" VARIABLES=q1 \xc3\xa9t\xc3\xa9","procedure":"Multiple Response Set","status":"error","items":[{"kind":"message","level":"error","text":"The variable \xc3\xa9t\xc3\xa9 is not in the dataset.","line":1,"column":49,"length":3}],"source":"json.script"} (esc)
  {"command":2,"line":2,"text":"MRSET\n /DISLPAY","procedure":"Multiple Response Set","status":"error","items":[{"kind":"message","level":"error","text":"Invalid MRSET subcommand. Found DISLPAY ..","line":3,"column":3,"length":7,"hint":"did you mean DISPLAY?"}],"source":"json.script"}
  {"command":3,"line":4,"text":"MRSET","procedure":"Multiple Response Set","status":"error","items":[{"kind":"message","level":"error","text":"No subcommand in MRSET command.","line":4,"column":6,"length":0}],"source":"json.script"}
  {"command":4,"line":1,"text":"MRSET /DELETE NAME=ALL","procedure":"Multiple Response Set","status":"ok","items":[{"kind":"message","level":"warning","text":"No MRSETs to delete"}],"source":"-c 1"}
  [1]

Hints change neither the sets nor the exit status.

  $ mrset run s.mrset -c 'MRSET /MDGROUP NAME=$drinks VARIABLES=q1 q3 VALUE=5' -c 'MRSET /MDGROUP NAME=$some VARIABLES=q1 n1 VALUE=1' -c 'MRSET /DISPLAY NAME=[$drnks]'
  1> MRSET /MDGROUP NAME=$drinks VARIABLES=q1 q3 VALUE=5
  hint: no case has the counted value 5 of $drinks: q1 has 0, 1
  
  2> MRSET /MDGROUP NAME=$some VARIABLES=q1 n1 VALUE=1
  hint: no case has chosen n1 of $some
  
  3> MRSET /DISPLAY NAME=[$drnks]
  Warning: One or more of the sets specified do not exist... $drnks
    -c 3, line 1, column 22:
      MRSET /DISPLAY NAME=[$drnks]
                           ^^^^^^
  hint: did you mean $drinks?
  
  Multiple Response Sets
  
  Name  Label  Coded As  Counted Value  Data Type  Elementary Variables
  ----  -----  --------  -------------  ---------  --------------------
  (none)
  $ mrset run s.mrset -c 'MRSET /MDGROUP NAME=$drinks VARIABLES=q1 n1 VALUE=1' -c 'MRSET /DISPLAY NAME=[$soem]' --format json
  {"command":1,"line":1,"text":"MRSET /MDGROUP NAME=$drinks VARIABLES=q1 n1 VALUE=1","procedure":"Multiple Response Set","status":"ok","items":[],"source":"-c 1","hints":["no case has chosen n1 of $drinks"]}
  {"command":2,"line":1,"text":"MRSET /DISPLAY NAME=[$soem]","procedure":"Multiple Response Set","status":"ok","items":[{"kind":"message","level":"warning","text":"One or more of the sets specified do not exist... $soem","line":1,"column":22,"length":5,"hint":"did you mean $some?"},{"kind":"table","title":"Multiple Response Sets","rowDimension":"Name","columnDimension":"Attributes","columns":["Label","Coded As","Counted Value","Data Type","Elementary Variables"],"rows":[]}],"source":"-c 2"}
  $ mrset run s.mrset --dry-run -c 'MRSET /DELETE NAME=ALL /MDGROUP NAME=$colours VARIABLES=t1 t2 VALUE="red "' -c 'MRSET /DELETE NAME=[$coluors]'
  1> MRSET /DELETE NAME=ALL /MDGROUP NAME=$colours VARIABLES=t1 t2 VALUE="red "
  hint: no case has chosen t2 of $colours
  Dry run: $colours would be added; $drinks, $some would be deleted.
  
  2> MRSET /DELETE NAME=[$coluors]
  Warning: $coluors MRSET can not be found in the dataset.
    -c 2, line 1, column 21:
      MRSET /DELETE NAME=[$coluors]
                          ^^^^^^^^
  hint: did you mean $colours?

A hint that would not be sure is none: other digits, several names that are as near, a name that the command deletes.

  $ mrset run s.mrset -c 'MRSET /MCGROUP NAME=$x VARIABLES=q1 q4' -c 'MRSET /MGROUP NAME=$x' -c 'MRSET /DELETE NAME=[$some] /DISPLAY NAME=[$soem]' | grep hint
  [1]

Nor is a keyword that has its "=", a variable that is in the list, or one of the other kind.

  $ mrset run s.mrset -c 'MRSET /MDGROUP NAME=$d VARIABLES=q1 value q2 VALUE=1' -c 'MRSET /MDGROUP NAME=$d LABEL="x" VARIABLES=q1 q2 lab VALUE=1' | grep hint
  [1]

A subcommand without keywords ends the command without a message. The hint says so.

  $ mrset run s.mrset -c 'MRSET /MDGROUP /DISPLAY NAME=ALL'
  1> MRSET /MDGROUP /DISPLAY NAME=ALL
  hint: MDGROUP has no keywords: nothing of this command was carried out
  $ mrset run s.mrset -c 'MRSET /MDGROUP /DISPLAY NAME=ALL' --format json
  {"command":1,"line":1,"text":"MRSET /MDGROUP /DISPLAY NAME=ALL","procedure":"Multiple Response Set","status":"ok","items":[],"source":"-c 1","hints":["MDGROUP has no keywords: nothing of this command was carried out"]}
