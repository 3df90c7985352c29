The JSON that other programs read, to the letter.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset
  $ cat > all.script <<'SCRIPT'
  > MRSET /MDGROUP NAME=$drinks LABEL="Drinks" VARIABLES=q1 TO q3 VALUE=1
  >       CATEGORYLABELS=COUNTEDVALUES /DISPLAY NAME=[$drinks $none].
  > 
  > MRSET /MCGROUP NAME=$colours VARIABLES=T1 t2 /DISPLAY NAME=[$colours].
  > FREQUENCIES q1.
  > MRSET /MDGROUP /DISPLAY.
  > MRSET /DISPLAY NAME=[$no].
  > MRSET /DELETE NAME=[x].
  > SCRIPT
  $ mrset run s.mrset all.script --format json | numberless
  {"command":1,"line":1,"text":"MRSET /MDGROUP NAME=$drinks LABEL=\"Drinks\" VARIABLES=q1 TO q3 VALUE=1\n      CATEGORYLABELS=COUNTEDVALUES /DISPLAY NAME=[$drinks $none]","procedure":"Multiple Response Set","status":"ok","items":[{"kind":"message","level":"warning","text":"One or more of the sets specified do not exist... $none","line":2,"column":59,"length":5},{"kind":"table","title":"Multiple Response Sets","rowDimension":"Name","columnDimension":"Attributes","columns":["Label","Coded As","Counted Value","Data Type","Elementary Variables"],"rows":[{"name":"$drinks","cells":["Drinks","Dichotomies","1","Numeric",["q1","q2","q3"]],"notes":[null,null,"Using variable value labels",null,null]}]}],"source":"all.script"}
  {"command":2,"line":4,"text":"MRSET /MCGROUP NAME=$colours VARIABLES=T1 t2 /DISPLAY NAME=[$colours]","procedure":"Multiple Response Set","status":"ok","items":[{"kind":"table","title":"Multiple Response Sets","rowDimension":"Name","columnDimension":"Attributes","columns":["Label","Coded As","Counted Value","Data Type","Elementary Variables"],"rows":[{"name":"$colours","cells":[null,"Categories","N/A","String",["First colour","t2"]],"notes":[null,null,null,null,null]}]}],"source":"all.script"}
  {"command":3,"line":5,"text":"FREQUENCIES q1","procedure":null,"status":"error","items":[{"kind":"message","level":"error","text":"Line 5: FREQUENCIES is not a command. The commands here are MRSET and TABULATE.","line":5,"column":1,"length":11}],"source":"all.script"}
  {"command":4,"line":6,"text":"MRSET /MDGROUP /DISPLAY","procedure":"Multiple Response Set","status":"ok","items":[],"source":"all.script","hints":["MDGROUP has no keywords: nothing of this command was carried out"]}
  {"command":5,"line":7,"text":"MRSET /DISPLAY NAME=[$no]","procedure":"Multiple Response Set","status":"ok","items":[{"kind":"message","level":"warning","text":"One or more of the sets specified do not exist... $no","line":7,"column":22,"length":3},{"kind":"table","title":"Multiple Response Sets","rowDimension":"Name","columnDimension":"Attributes","columns":["Label","Coded As","Counted Value","Data Type","Elementary Variables"],"rows":[]}],"source":"all.script"}
  {"command":6,"line":8,"text":"MRSET /DELETE NAME=[x]","procedure":"Multiple Response Set","status":"aborted","items":[{"kind":"message","level":"fatal","text":"mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `(*namesIter)[0] == '$'' failed."}],"source":"all.script","hints":["names of sets begin with $; x does not"]}
  [3]
  $ mrset sets s.mrset --format json
  {"sets":[{"name":"$colours","type":"category","label":"","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["t1","t2"]},{"name":"$drinks","type":"dichotomy","label":"Drinks","countedValue":"1","labelFromVariable":false,"categoryLabelsFromCountedValue":true,"variables":["q1","q2","q3"]}]}
  $ mrset variables s.mrset --format json
  {"variables":[{"name":"q1","width":0,"label":"Tea","valueLabels":[{"value":"0","label":"No"},{"value":"1","label":"Drinks tea"}]},{"name":"q2","width":0,"label":"Coffee","valueLabels":[{"value":"0","label":"No"},{"value":"1","label":"Drinks coffee"}]},{"name":"q3","width":0,"label":null,"valueLabels":[{"value":"1","label":"Drinks milk"}]},{"name":"n1","width":0,"label":null,"valueLabels":[]},{"name":"t1","width":8,"label":"First colour","valueLabels":[]},{"name":"t2","width":5,"label":null,"valueLabels":[]}]}

Every line is JSON, also where the command's text is not UTF-8.

  $ printf 'MRSET /DISPLAY NAME=[\377].' > latin.script
  $ mrset run s.mrset latin.script --format json
  {"command":1,"line":1,"text":"MRSET /DISPLAY NAME=[\xef\xbf\xbd]","procedure":null,"status":"error","items":[{"kind":"message","level":"error","text":"Line 1: The command is not valid UTF-8.","line":1,"column":22,"length":1}],"source":"latin.script"} (esc)
  [1]

A dataset without sets or value labels.

  $ printf 'a,b\n1,x\n' > plain.csv
  $ mrset import plain.csv p.mrset 2> /dev/null
  $ mrset sets p.mrset --format json
  {"sets":[]}
  $ mrset variables p.mrset --format json
  {"variables":[{"name":"a","width":0,"label":null,"valueLabels":[]},{"name":"b","width":1,"label":null,"valueLabels":[]}]}
  $ mrset run p.mrset -c 'MRSET /DISPLAY NAME=ALL' --format json
  {"command":1,"line":1,"text":"MRSET /DISPLAY NAME=ALL","procedure":"Multiple Response Set","status":"ok","items":[{"kind":"message","level":"warning","text":"No MRSET to display"}],"source":"-c 1"}

