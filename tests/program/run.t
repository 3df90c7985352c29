Commands come from a file, from standard input and from -c.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset

A script from a file, one command a period; what was defined stays for the next process.

  $ cat > define.script <<'SCRIPT'
  > * A comment is no command.
  > MRSET /MDGROUP NAME=$drinks LABEL='Drinks' VARIABLES=q1 TO q3 VALUE=1
  >   CATEGORYLABELS=COUNTEDVALUES.
  > MRSET /MCGROUP NAME=$Colours VARIABLES=t1 t2.
  > SCRIPT
  $ mrset run s.mrset define.script
  1> MRSET /MDGROUP NAME=$drinks LABEL='Drinks' VARIABLES=q1 TO q3 VALUE=1
     CATEGORYLABELS=COUNTEDVALUES
  
  2> MRSET /MCGROUP NAME=$Colours VARIABLES=t1 t2
  $ mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL'
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name      Label   Coded As     Counted Value  Data Type  Elementary Variables
  --------  ------  -----------  -------------  ---------  --------------------
  $Colours          Categories   N/A            String     First colour
                                                           t2
  
  $drinks   Drinks  Dichotomies  1 [a]          Numeric    q1
                                                           q2
                                                           q3
  
  [a] Using variable value labels

Standard input.

  $ printf 'MRSET /DISPLAY NAME=[$COLOURS].' | mrset run s.mrset -
  1> MRSET /DISPLAY NAME=[$COLOURS]
  
  Multiple Response Sets
  
  Name      Label  Coded As    Counted Value  Data Type  Elementary Variables
  --------  -----  ----------  -------------  ---------  --------------------
  $Colours         Categories  N/A            String     First colour
                                                         t2

The script first, then each -c, in their order; the final period of -c is optional.

  $ mrset run s.mrset define.script -c 'MRSET /DELETE NAME=[$drinks]' -c 'MRSET /DELETE NAME=[$drinks $colours].'
  1> MRSET /MDGROUP NAME=$drinks LABEL='Drinks' VARIABLES=q1 TO q3 VALUE=1
     CATEGORYLABELS=COUNTEDVALUES
  
  2> MRSET /MCGROUP NAME=$Colours VARIABLES=t1 t2
  
  3> MRSET /DELETE NAME=[$drinks]
  
  4> MRSET /DELETE NAME=[$drinks $colours]
  Warning: $drinks MRSET can not be found in the dataset.
    -c 2, line 1, column 21:
      MRSET /DELETE NAME=[$drinks $colours].
                          ^^^^^^^
  $ mrset sets s.mrset
  The dataset has no multiple response sets.

An error message gives exit status 1 and does not keep the next command from running.

  $ mrset run s.mrset -c 'MRSET /MCGROUP NAME=colours VARIABLES=t1 t2' -c 'MRSET /MCGROUP NAME=$colours VARIABLES=t1 t2'
  1> MRSET /MCGROUP NAME=colours VARIABLES=t1 t2
  Error: The MRSET name colours must start with $.
    -c 1, line 1, column 21:
      MRSET /MCGROUP NAME=colours VARIABLES=t1 t2
                          ^^^^^^^
  
  2> MRSET /MCGROUP NAME=$colours VARIABLES=t1 t2
  [1]
  $ mrset sets s.mrset
  Multiple response sets
  
  Name      Type      Label  Counted value  Variables
  --------  --------  -----  -------------  ---------
  $colours  category                        t1
                                            t2

--stop-on-error runs nothing after the first failure.

  $ mrset run s.mrset --stop-on-error -c 'MRSET /DELETE NAME=ALL /FOO' -c 'MRSET /DELETE NAME=ALL'
  1> MRSET /DELETE NAME=ALL /FOO
  Error: Invalid MRSET subcommand. Found FOO ..
    -c 1, line 1, column 25:
      MRSET /DELETE NAME=ALL /FOO
                              ^^^
  [1]
  $ mrset run s.mrset --stop-on-error -c 'MRSET /DELETE NAME=[x]' -c 'MRSET /DELETE NAME=ALL' | numberless
  1> MRSET /DELETE NAME=[x]
  Fatal: mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `(*namesIter)[0] == '$'' failed.
  hint: names of sets begin with $; x does not
  The command was aborted; the dataset is as it was before it.
  [3]
  $ mrset sets s.mrset
  Multiple response sets
  
  Name      Type      Label  Counted value  Variables
  --------  --------  -----  -------------  ---------
  $colours  category                        t1
                                            t2

A warning is no error.

  $ mrset run s.mrset --stop-on-error -c 'MRSET /DELETE NAME=[$no]' -c 'MRSET /DELETE NAME=ALL'
  1> MRSET /DELETE NAME=[$no]
  Warning: $no MRSET can not be found in the dataset.
    -c 1, line 1, column 21:
      MRSET /DELETE NAME=[$no]
                          ^^^
  
  2> MRSET /DELETE NAME=ALL

An error that does not stop the command leaves its result, and exit status 1.

  $ mrset run s.mrset -c 'MRSET /MDGROUP NAME=$half VARIABLES=q1 q2 VALUE=0.5'
  1> MRSET /MDGROUP NAME=$half VARIABLES=q1 q2 VALUE=0.5
  Error: The counted value 0.5 is not an integer.
    -c 1, line 1, column 49:
      MRSET /MDGROUP NAME=$half VARIABLES=q1 q2 VALUE=0.5
                                                      ^^^
  hint: no case has the counted value 0.5 of $half: q1 has 0, 1
  [1]
  $ mrset sets s.mrset --format json
  {"sets":[{"name":"$half","type":"dichotomy","label":"","countedValue":"0.5","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["q1","q2"]}]}

A dry run shows all of it, the later commands upon the earlier ones, and leaves the dataset as it is.

  $ cp s.mrset before.mrset
  $ mrset run s.mrset --dry-run -c 'MRSET /DELETE NAME=ALL' -c 'MRSET /MCGROUP NAME=$colours VARIABLES=t1 t2' -c 'MRSET /DELETE NAME=[x]' -c 'MRSET /DISPLAY NAME=ALL' | numberless
  1> MRSET /DELETE NAME=ALL
  Dry run: $half would be deleted.
  
  2> MRSET /MCGROUP NAME=$colours VARIABLES=t1 t2
  Dry run: $colours would be added.
  
  3> MRSET /DELETE NAME=[x]
  Fatal: mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `(*namesIter)[0] == '$'' failed.
  hint: names of sets begin with $; x does not
  The command was aborted; the dataset is as it was before it.
  
  4> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name      Label  Coded As    Counted Value  Data Type  Elementary Variables
  --------  -----  ----------  -------------  ---------  --------------------
  $colours         Categories  N/A            String     First colour
                                                         t2
  [3]
  $ cmp s.mrset before.mrset

--output writes the file whole, and not at all where the run cannot end.

  $ mrset run s.mrset --output out.txt -c 'MRSET /DISPLAY NAME=ALL'
  $ cat out.txt
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name   Label  Coded As     Counted Value  Data Type  Elementary Variables
  -----  -----  -----------  -------------  ---------  --------------------
  $half         Dichotomies  0.5            Numeric    Tea
                                                       Coffee
  $ echo before > kept.txt
  $ mrset run missing.mrset --output kept.txt -c 'MRSET /DISPLAY NAME=ALL'
  mrset: missing.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv missing.mrset
  [2]
  $ cat kept.txt
  before
  $ mrset run s.mrset --output no/such/out.txt -c 'MRSET /DELETE NAME=ALL'
  mrset: The output file no/such/out.txt cannot be written: No such file or directory.
  [2]
  $ mrset run s.mrset --output . -c 'MRSET /DELETE NAME=ALL'
  mrset: The output file . cannot be written: it is a directory.
  [2]
  $ ls
  before.mrset
  define.script
  kept.txt
  out.txt
  s.mrset
  $ mrset sets s.mrset
  Multiple response sets
  
  Name   Type       Label  Counted value  Variables
  -----  ---------  -----  -------------  ---------
  $half  dichotomy         0.5            q1
                                          q2

What the run reads is never overwritten; a link leads on, and what is no plain file is written as it is.

  $ mrset run s.mrset define.script --output s.mrset
  mrset: The output file s.mrset is what the run reads; give another one.
  [2]
  $ mrset run s.mrset define.script --output ./define.script
  mrset: The output file ./define.script is what the run reads; give another one.
  [2]
  $ ln -s linked.txt link && touch linked.txt
  $ mrset run s.mrset --output link -c 'MRSET /DISPLAY NAME=[$none]' && head -1 linked.txt && test -L link
  1> MRSET /DISPLAY NAME=[$none]
  $ mrset run s.mrset --output /dev/stdout -c 'MRSET' | cat
  1> MRSET
  Error: No subcommand in MRSET command.
    -c 1, line 1, column 6:
      MRSET
           ^
  [1]
  $ (echo before; mrset run s.mrset --output /dev/stdout -c 'MRSET /DISPLAY NAME=[$none]'; echo after) > shared.txt; sed -n '1,2p;$p' shared.txt
  before
  1> MRSET /DISPLAY NAME=[$none]
  after
  $ ln -s nowhere dangling; mrset run s.mrset --output dangling -c 'MRSET'; rm dangling
  mrset: The output file dangling cannot be written: it is a link that leads nowhere.
  $ touch private.txt && chmod 600 private.txt && mrset run s.mrset --output private.txt -c 'MRSET /DELETE NAME=[$none]'; stat -c %a private.txt
  600
  $ mrset run s.mrset --output /dev/full -c 'MRSET /DISPLAY NAME=[$none]'
  mrset: The output file /dev/full cannot be written: No space left on device.
  [2]

A script without commands.

  $ printf '\n* nothing.\n' > empty.script
  $ mrset run s.mrset empty.script
  $ mrset run missing.mrset empty.script
  mrset: missing.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv missing.mrset
  [2]

A script that cannot be read.

  $ mrset run s.mrset missing.script
  mrset: The script missing.script cannot be read: No such file or directory.
  [2]
  $ mrset run s.mrset .
  mrset: The script . cannot be read: Is a directory.
  [2]
  $ mrset run s.mrset - <&-
  $ mrset run s.mrset ''
  mrset: The script of no name cannot be read: No such file or directory.
  [2]
  $ mrset run s.mrset
  mrset: There is nothing to run: give a SCRIPT, - for commands on standard input, or -c with a command.
    mrset run s.mrset commands.script
    mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL'
    mrset shell s.mrset
  [2]

Tables fit the 80 columns of a line where there is no terminal.

  $ breakfast b.mrset
  $ cp "$EXAMPLES/breakfast.script" .
  $ mrset run b.mrset breakfast.script | awk 'length > 80 && !/^[>+]/'
     /MDGROUP NAME=$drinks LABEL='Drinks at breakfast' VARIABLES=drink1 TO drink5 VALUE=1
  3> MRSET /MDGROUP NAME=$Drinks LABEL='Hot drinks' VARIABLES=drink1 drink2 VALUE=1

A full standard output is told.

  $ mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' > /dev/full
  mrset: Standard output cannot be written.
  [2]
