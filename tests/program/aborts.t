A failed assertion of the module ends its command and nothing else.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset
  $ mrset run s.mrset -c 'MRSET /MCGROUP NAME=$colours VARIABLES=t1 t2'
  1> MRSET /MCGROUP NAME=$colours VARIABLES=t1 t2
  $ cp s.mrset before.mrset
  $ cat > aborting.script <<'SCRIPT'
  > MRSET /DELETE NAME=ALL /MCGROUP VARIABLES=q1 q2.
  > MRSET /DELETE NAME=[].
  > MRSET /DISPLAY NAME=ALL /DELETE NAME=[x].
  > SCRIPT
  $ mrset run s.mrset aborting.script | numberless
  1> MRSET /DELETE NAME=ALL /MCGROUP VARIABLES=q1 q2
  Error: MCGROUP has no name.
    aborting.script, line 1, column 25:
      MRSET /DELETE NAME=ALL /MCGROUP VARIABLES=q1 q2.
                              ^^^^^^^
  Fatal: mrset: backend/mrset/mrsetapply.cpp:LINE: void AddMCGroup(const MRSetSubcommand&, const ZEVA_DataSource&, VARIABLESETS&): Assertion `!subcmd.fName.empty()' failed.
  hint: MCGROUP has no name: add NAME=$name
  The command was aborted; the dataset is as it was before it.
  
  2> MRSET /DELETE NAME=[]
  Fatal: mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `!subcmd.fNames.empty()' failed.
  hint: the list in the brackets is empty
  The command was aborted; the dataset is as it was before it.
  
  3> MRSET /DISPLAY NAME=ALL /DELETE NAME=[x]
  
  Multiple Response Sets
  
  Name      Label  Coded As    Counted Value  Data Type  Elementary Variables
  --------  -----  ----------  -------------  ---------  --------------------
  $colours         Categories  N/A            String     First colour
                                                         t2
  
  Fatal: mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `(*namesIter)[0] == '$'' failed.
  hint: names of sets begin with $; x does not
  The command was aborted; the dataset is as it was before it.
  [3]
  $ cmp s.mrset before.mrset

The commands after them run.

  $ mrset run s.mrset aborting.script -c 'MRSET /MCGROUP NAME=$q VARIABLES=q1 q2' --format json | numberless
  {"command":1,"line":1,"text":"MRSET /DELETE NAME=ALL /MCGROUP VARIABLES=q1 q2","procedure":"Multiple Response Set","status":"aborted","items":[{"kind":"message","level":"error","text":"MCGROUP has no name.","line":1,"column":25,"length":7},{"kind":"message","level":"fatal","text":"mrset: backend/mrset/mrsetapply.cpp:LINE: void AddMCGroup(const MRSetSubcommand&, const ZEVA_DataSource&, VARIABLESETS&): Assertion `!subcmd.fName.empty()' failed."}],"source":"aborting.script","hints":["MCGROUP has no name: add NAME=$name"]}
  {"command":2,"line":2,"text":"MRSET /DELETE NAME=[]","procedure":"Multiple Response Set","status":"aborted","items":[{"kind":"message","level":"fatal","text":"mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `!subcmd.fNames.empty()' failed."}],"source":"aborting.script","hints":["the list in the brackets is empty"]}
  {"command":3,"line":3,"text":"MRSET /DISPLAY NAME=ALL /DELETE NAME=[x]","procedure":"Multiple Response Set","status":"aborted","items":[{"kind":"table","title":"Multiple Response Sets","rowDimension":"Name","columnDimension":"Attributes","columns":["Label","Coded As","Counted Value","Data Type","Elementary Variables"],"rows":[{"name":"$colours","cells":[null,"Categories","N/A","String",["First colour","t2"]],"notes":[null,null,null,null,null]}]},{"kind":"message","level":"fatal","text":"mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `(*namesIter)[0] == '$'' failed."}],"source":"aborting.script","hints":["names of sets begin with $; x does not"]}
  {"command":4,"line":1,"text":"MRSET /MCGROUP NAME=$q VARIABLES=q1 q2","procedure":"Multiple Response Set","status":"ok","items":[],"source":"-c 1"}
  [3]
  $ mrset sets s.mrset
  Multiple response sets
  
  Name      Type      Label  Counted value  Variables
  --------  --------  -----  -------------  ---------
  $colours  category                        t1
                                            t2
  
  $q        category                        q1
                                            q2

An aborted command weighs more than an error message.

  $ mrset run s.mrset -c 'MRSET /DELETE NAME=[]' -c 'MRSET' > /dev/null
  [3]

No memory dump is left, not even where dumps are wanted.

  $ (ulimit -c unlimited && mrset run s.mrset -c 'MRSET /DELETE NAME=[]' > /dev/null)
  [3]
  $ ls
  aborting.script
  before.mrset
  s.mrset

