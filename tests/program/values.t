The values that occur in the cases, with the cases that hold them.

  $ . "$TESTDIR/setup.sh"
  $ printf 'q1,t1,age,note\n1,red,31.5,\n0,red ,31.5,\n1, ,-2,\n,,1e3,\n1.0,blue,7,\n' > s.csv
  $ printf '{"fields": [{"name": "q1", "type": "number", "title": "Tea", "categories": [{"value": 0, "label": "No"}, {"value": 1, "label": "Yes"}, {"value": 9, "label": "Refused"}]}, {"name": "t1", "type": "string", "categories": [{"value": "red", "label": "Rot"}]}, {"name": "age", "type": "number"}, {"name": "note", "type": "string"}]}' > s.json
  $ mrset import --schema s.json s.csv s.mrset
  s.mrset: 4 variables, 5 cases
  $ mrset variables s.mrset --values
  Variables
  
  Name  Type             Label  Values (cases)
  ----  ---------------  -----  --------------
  q1    numeric          Tea    0 = No (1)
                                1 = Yes (3)
                                missing: 1
  
  t1    string, 4 bytes         blue (1)
                                red = Rot (2)
                                missing: 2
  
  age   numeric                 -2 (1)
                                7 (1)
                                31.5 (2)
                                1000 (1)
  
  note  string, 1 byte          missing: 5
  $ mrset variables s.mrset q1 --values --format json
  {"variables":[{"name":"q1","width":0,"label":"Tea","valueLabels":[{"value":"0","label":"No"},{"value":"1","label":"Yes"},{"value":"9","label":"Refused"}],"values":[{"value":"0","label":"No","count":1},{"value":"1","label":"Yes","count":3}],"missing":1}]}
  $ mrset variables s.mrset --values --format csv
  Name,Type,Label,Values (cases)\r (esc)
  q1,numeric,Tea,"0 = No (1)
  1 = Yes (3)
  missing: 1"\r (esc)
  t1,"string, 4 bytes",,"blue (1)
  red = Rot (2)
  missing: 2"\r (esc)
  age,numeric,,"'-2 (1)
  7 (1)
  31.5 (2)
  1000 (1)"\r (esc)
  note,"string, 1 byte",,missing: 5\r (esc)
  $ mrset variables s.mrset q1 --values --format markdown
  **Variables**
  
  | Name | Type | Label | Values (cases) |
  | --- | --- | --- | --- |
  | q1 | numeric | Tea | 0 \= No (1)<br>1 \= Yes (3)<br>missing: 1 |
  $ echo 'variables q1 --values' | mrset shell s.mrset
  Variables
  
  Name  Type     Label  Values (cases)
  ----  -------  -----  --------------
  q1    numeric  Tea    0 = No (1)
                        1 = Yes (3)
                        missing: 1
  $ mrset variables s.mrset --values > values && echo 'variables --VALUES.' | mrset shell s.mrset | diff values -

Of many values the 100 smallest are shown, and how many cases have others:

  $ { echo n; seq 70000; seq 5; echo '" "'; } | mrset import - n.mrset
  n.mrset: 1 variable, 70006 cases
  $ mrset variables n.mrset --values --format json | python3 -c 'import json, sys; n = json.load(sys.stdin)["variables"][0]; print(n["values"][0], n["values"][-1], len(n["values"]), n["otherValues"], n["missing"])'
  {'value': '1', 'count': 2} {'value': '100', 'count': 1} 100 69900 1
  $ mrset variables n.mrset --values | tail -n 3
                        100 (1)
                        others: 69900
                        missing: 1
  $ { echo t; seq -f 'text %g' 70000; } | mrset import - t.mrset
  t.mrset: 1 variable, 70000 cases
  $ mrset variables t.mrset --values | tail -n 3
                                 text 10086 (1)
                                 text 10087 (1)
                                 others: 69900

A dataset without cases, and one that is damaged:

  $ echo q1 | mrset import - none.mrset
  none.mrset: 1 variable, 0 cases
  $ mrset variables none.mrset --values
  Variables
  
  Name  Type            Label  Values (cases)
  ----  --------------  -----  --------------
  q1    string, 1 byte
  $ sqlite3 s.mrset "UPDATE block SET head = x'00' WHERE id = 1"
  $ mrset variables s.mrset --values
  mrset: s.mrset is damaged.
  [2]

A text that looks like what is said of others is told apart:

  $ { echo t,n; printf 'missing,\nothers,1\n"missing: 1",1\n,1\n'; seq -f 'x%03g,1' 200; } | mrset import - words.mrset
  words.mrset: 2 variables, 204 cases
  $ mrset variables words.mrset t --values | grep -E 'missing|others'
  t     string, 10 bytes         missing (1)
                                 missing: 1 (1)
                                 others (1)
                                 others: 103
                                 missing: 1
  $ mrset variables words.mrset t --values --format csv | tail -n 2
  others: 103
  missing: 1"\r (esc)

A number that is nearer to 0 than any double is 0, wherever it is read:

  $ printf 'a,b\n1e-400,5\n0,1e-320\n-1e-400,\n' > tiny.csv; mrset import tiny.csv tiny.mrset
  tiny.mrset: 2 variables, 3 cases
  $ mrset run tiny.mrset -c 'MRSET /MDGROUP NAME=$zero VARIABLES=a b VALUE=1e-999' | grep -v '^$'
  1> MRSET /MDGROUP NAME=$zero VARIABLES=a b VALUE=1e-999
  hint: no case has chosen b of $zero
  $ mrset tabulate tiny.mrset '$zero' --where 'a = 2e-400 and b = 1e-320' --format csv
  set,setLabel,base,weight,where,by,value,value2,column,member,label,net,cases,count,percentOfCases,percentOfResponses,allCases,answered,noneChosen,missing,baseCases,weightedBase,effectiveBase,responses,responsesPerCase\r (esc)
  $zero,$zero,answered,,a = 2e-400 and b = 1e-320,,,,Total,a,a,false,1,1,100,100,1,1,0,0,1,1,1,1,1\r (esc)
  $zero,$zero,answered,,a = 2e-400 and b = 1e-320,,,,Total,b,b,false,0,0,0,0,1,1,0,0,1,1,1,1,1\r (esc)
  $zero: The base is under 30 in 1 column: Total (1).
  $ mrset check tiny.mrset
  tiny.mrset is sound.
  $ mrset variables tiny.mrset --values --format json
  {"variables":[{"name":"a","width":0,"label":null,"valueLabels":[],"values":[{"value":"0","count":3}],"missing":0},{"name":"b","width":0,"label":null,"valueLabels":[],"values":[{"value":"1e-320","count":1},{"value":"5","count":1}],"missing":1}]}
