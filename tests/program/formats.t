Results in other forms: Markdown for documents, CSV for spreadsheets, a page for a browser.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset
  $ cat > all.script <<'SCRIPT'
  > MRSET /MDGROUP NAME=$drinks LABEL='Tea & <coffee>' VARIABLES=q1 TO q3 VALUE=1
  >   CATEGORYLABELS=COUNTEDVALUES /DISPLAY NAME=[$drinks $none].
  > MRSET /MCGROUP NAME=$colours LABEL='=1+1' VARIABLES=t1 t2 /DISPLAY NAME=[$colours].
  > FREQUENCIES q1.
  > MRSET /DELETE NAME=[x].
  > SCRIPT

Markdown.

  $ mrset run s.mrset all.script --format markdown | numberless
  ## Command 1
  
  ```
  MRSET /MDGROUP NAME=$drinks LABEL='Tea & <coffee>' VARIABLES=q1 TO q3 VALUE=1
    CATEGORYLABELS=COUNTEDVALUES /DISPLAY NAME=[$drinks $none]
  ```
  
  **Warning:** One or more of the sets specified do not exist... \$none
  
  all.script, line 2, column 55:
  
  ```
    CATEGORYLABELS=COUNTEDVALUES /DISPLAY NAME=[$drinks $none].
                                                        ^^^^^
  ```
  
  **Multiple Response Sets**
  
  | Name | Label | Coded As | Counted Value | Data Type | Elementary Variables |
  | --- | --- | --- | --- | --- | --- |
  | \$drinks | Tea \& \<coffee\> | Dichotomies | 1 \[a\] | Numeric | q1<br>q2<br>q3 |
  
  \[a\] Using variable value labels
  
  ## Command 2
  
  ```
  MRSET /MCGROUP NAME=$colours LABEL='=1+1' VARIABLES=t1 t2 /DISPLAY NAME=[$colours]
  ```
  
  **Multiple Response Sets**
  
  | Name | Label | Coded As | Counted Value | Data Type | Elementary Variables |
  | --- | --- | --- | --- | --- | --- |
  | \$colours | \=1+1 | Categories | N/A | String | First colour<br>t2 |
  
  ## Command 3
  
  ```
  FREQUENCIES q1
  ```
  
  **Error:** Line 4: FREQUENCIES is not a command. The commands here are MRSET and TABULATE.
  
  all.script, line 4, column 1:
  
  ```
  FREQUENCIES q1.
  ^^^^^^^^^^^
  ```
  
  ## Command 4
  
  ```
  MRSET /DELETE NAME=[x]
  ```
  
  **Fatal:** mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand\&, VARIABLESETS\&): Assertion \`(\*namesIter)\[0\] \=\= '\$'' failed.
  
  *hint:* names of sets begin with \$; x does not
  
  The command was aborted; the dataset is as it was before it.
  [3]
  $ mrset sets s.mrset --format markdown
  **Multiple response sets**
  
  | Name | Type | Label | Counted value | Variables |
  | --- | --- | --- | --- | --- |
  | \$colours | category | \=1+1 |  | t1<br>t2 |
  | \$drinks | dichotomy | Tea \& \<coffee\> | 1 | q1<br>q2<br>q3 |
  $ mrset variables s.mrset --format markdown
  **Variables**
  
  | Name | Type | Label | Value labels |
  | --- | --- | --- | --- |
  | q1 | numeric | Tea | 0 \= No<br>1 \= Drinks tea |
  | q2 | numeric | Coffee | 0 \= No<br>1 \= Drinks coffee |
  | q3 | numeric |  | 1 \= Drinks milk |
  | n1 | numeric |  |  |
  | t1 | string, 8 bytes | First colour |  |
  | t2 | string, 5 bytes |  |  |

CSV holds the tables; messages are told on standard error. A text that a spreadsheet would take for a formula has an
apostrophe in front.

  $ mrset run s.mrset all.script --format csv --output sets.csv 2>&1 | numberless
  all.script, line 2, column 55: Warning: One or more of the sets specified do not exist... $none
  all.script, line 4, column 1: Error: Line 4: FREQUENCIES is not a command. The commands here are MRSET and TABULATE.
  all.script, line 5: Fatal: mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `(*namesIter)[0] == '$'' failed.
  hint: names of sets begin with $; x does not
  all.script, line 5: The command was aborted; the dataset is as it was before it.
  [3]
  $ cat sets.csv
  Command,Table,Title,Name,Label,Coded As,Counted Value,Data Type,Elementary Variables,Notes\r (esc)
  1,1,Multiple Response Sets,$drinks,Tea & <coffee>,Dichotomies,1,Numeric,"q1
  q2
  q3",Counted Value: Using variable value labels\r (esc)
  2,1,Multiple Response Sets,$colours,'=1+1,Categories,N/A,String,"First colour
  t2",\r (esc)
  $ mrset sets s.mrset --format csv
  Name,Type,Label,Counted value,Variables\r (esc)
  $colours,category,'=1+1,,"t1
  t2"\r (esc)
  $drinks,dichotomy,Tea & <coffee>,1,"q1
  q2
  q3"\r (esc)
  $ mrset variables s.mrset --format csv
  Name,Type,Label,Value labels\r (esc)
  q1,numeric,Tea,"0 = No
  1 = Drinks tea"\r (esc)
  q2,numeric,Coffee,"0 = No
  1 = Drinks coffee"\r (esc)
  q3,numeric,,1 = Drinks milk\r (esc)
  n1,numeric,,\r (esc)
  t1,"string, 8 bytes",First colour,\r (esc)
  t2,"string, 5 bytes",,\r (esc)

An HTML page says at its top what failed.

  $ mrset run s.mrset all.script --format html --output sets.html
  [3]
  $ grep -vE '^(<style>|</style>)' sets.html | sed -E '/^:root/,/^<\/head>/d' | numberless
  <!DOCTYPE html>
  <html lang="en">
  <head>
  <meta charset="utf-8">
  <meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; base-uri 'none'; form-action 'none'">
  <meta name="viewport" content="width=device-width, initial-scale=1">
  <meta name="color-scheme" content="light dark">
  <title>s.mrset: 4 commands, 2 failed</title>
  <body>
  <header>
  <p class="kind">Multiple response sets</p>
  <h1 dir="auto">s.mrset</h1>
  <dl class="counts">
  <div class="commands"><dt>Commands</dt><dd>4</dd></div>
  <div class="error"><dt>With errors</dt><dd>1</dd></div>
  <div class="aborted"><dt>Aborted</dt><dd>1</dd></div>
  <div class="warning"><dt>Warnings</dt><dd>1</dd></div>
  </dl>
  <nav aria-labelledby="failures">
  <h2 id="failures">What failed</h2>
  <ul>
  <li><a href="#command-3">3&ensp;<code>FREQUENCIES q1</code></a> <span class="reason">Line 4: FREQUENCIES is not a command. The commands here are MRSET and TABULATE.</span></li>
  <li><a href="#command-4">4&ensp;<code>MRSET /DELETE NAME=[x]</code></a> <span class="reason">mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&amp;, VARIABLESETS&amp;): Assertion `(*namesIter)[0] == &#39;$&#39;&#39; failed.</span></li>
  </ul>
  </nav>
  </header>
  <main>
  <section class="command" id="command-1" aria-labelledby="command-1-heading">
  <h2 id="command-1-heading"><span class="position">1</span> <code>MRSET /MDGROUP NAME=$drinks LABEL=&#39;Tea &amp; &lt;coffee&gt;&#39; VARIABLES=q1 TO q3 VALUE=1
    CATEGORYLABELS=COUNTEDVALUES /DISPLAY NAME=[$drinks $none]</code></h2>
  <p class="facts"><span class="status ok">OK</span> all.script, line 1</p>
  <ul class="messages">
  <li class="warning"><p><strong>Warning:</strong> One or more of the sets specified do not exist... $none</p><p class="place">all.script, line 2, column 55</p><pre class="excerpt">  CATEGORYLABELS=COUNTEDVALUES /DISPLAY NAME=[$drinks <mark>$none</mark>].</pre></li>
  </ul>
  <div class="scroll" role="group" aria-labelledby="command-1-table-1" tabindex="0">
  <table>
  <caption id="command-1-table-1">Multiple Response Sets</caption>
  <thead>
  <tr><th scope="col">Name</th><th scope="col">Label</th><th scope="col">Coded As</th><th scope="col" class="number">Counted Value</th><th scope="col">Data Type</th><th scope="col">Elementary Variables</th></tr>
  </thead>
  <tbody>
  <tr><th scope="row" dir="auto">$drinks</th><td dir="auto">Tea &amp; &lt;coffee&gt;</td><td dir="auto">Dichotomies</td><td class="number" dir="auto">1<sup><a href="#command-1-table-1-note-a" id="command-1-table-1-to-a" aria-label="Note a">a</a></sup></td><td dir="auto">Numeric</td><td dir="auto"><ul><li dir="auto">q1</li><li dir="auto">q2</li><li dir="auto">q3</li></ul></td></tr>
  </tbody>
  </table>
  </div>
  <ul class="notes">
  <li id="command-1-table-1-note-a"><a href="#command-1-table-1-to-a" aria-label="Note a, back to the table">a</a> <span dir="auto">Using variable value labels</span></li>
  </ul>
  </section>
  <section class="command" id="command-2" aria-labelledby="command-2-heading">
  <h2 id="command-2-heading"><span class="position">2</span> <code>MRSET /MCGROUP NAME=$colours LABEL=&#39;=1+1&#39; VARIABLES=t1 t2 /DISPLAY NAME=[$colours]</code></h2>
  <p class="facts"><span class="status ok">OK</span> all.script, line 3</p>
  <div class="scroll" role="group" aria-labelledby="command-2-table-1" tabindex="0">
  <table>
  <caption id="command-2-table-1">Multiple Response Sets</caption>
  <thead>
  <tr><th scope="col">Name</th><th scope="col">Label</th><th scope="col">Coded As</th><th scope="col">Counted Value</th><th scope="col">Data Type</th><th scope="col">Elementary Variables</th></tr>
  </thead>
  <tbody>
  <tr><th scope="row" dir="auto">$colours</th><td dir="auto">=1+1</td><td dir="auto">Categories</td><td dir="auto">N/A</td><td dir="auto">String</td><td dir="auto"><ul><li dir="auto">First colour</li><li dir="auto">t2</li></ul></td></tr>
  </tbody>
  </table>
  </div>
  </section>
  <section class="command" id="command-3" aria-labelledby="command-3-heading">
  <h2 id="command-3-heading"><span class="position">3</span> <code>FREQUENCIES q1</code></h2>
  <p class="facts"><span class="status error">Error</span> all.script, line 4</p>
  <ul class="messages">
  <li class="error"><p><strong>Error:</strong> Line 4: FREQUENCIES is not a command. The commands here are MRSET and TABULATE.</p><p class="place">all.script, line 4, column 1</p><pre class="excerpt"><mark>FREQUENCIES</mark> q1.</pre></li>
  </ul>
  </section>
  <section class="command" id="command-4" aria-labelledby="command-4-heading">
  <h2 id="command-4-heading"><span class="position">4</span> <code>MRSET /DELETE NAME=[x]</code></h2>
  <p class="facts"><span class="status aborted">Aborted</span> all.script, line 5</p>
  <ul class="messages">
  <li class="error"><p><strong>Fatal:</strong> mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&amp;, VARIABLESETS&amp;): Assertion `(*namesIter)[0] == &#39;$&#39;&#39; failed.</p></li>
  <li class="hint"><p class="hint"><strong>Hint:</strong> names of sets begin with $; x does not</p></li>
  </ul>
  <p class="outcome">The command was aborted; the dataset is as it was before it.</p>
  </section>
  </main>
  </body>
  </html>
  $ mrset run s.mrset all.script --format html | cmp - sets.html
  [3]
  $ mrset run s.mrset --dry-run -c 'MRSET /DELETE NAME=ALL' --format html | grep -o 'A dry run.*\.'
  A dry run: the dataset was left as it was.

It is complete or absent, also on standard output.

  $ mrset run no.mrset all.script --format html
  mrset: no.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv no.mrset
  [2]
  $ mrset run no.mrset all.script --format html --output none.html
  mrset: no.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv no.mrset
  [2]
  $ test -e none.html
  [1]
  $ TMPDIR=/proc mrset run s.mrset all.script --format html
  mrset: The output cannot be kept in /proc: No such file or directory.
  [2]
  $ for i in $(seq 20); do echo 'MRSET /DISPLAY NAME=ALL.'; done > long.script
  $ (trap '' XFSZ; ulimit -f 4; TMPDIR=. mrset run s.mrset long.script --format html)
  mrset: The output cannot be kept in .: File too large.
  [2]
  $ ls *.html .*.tmp mrset-* 2> /dev/null
  sets.html
  [2]

A workbook has a sheet for each table, and one for the messages. It is complete or absent, too.

  $ mrset run s.mrset all.script --output sets.xlsx
  [3]
  $ python3 "$TESTDIR/../standalone/output/read_workbook.py" sets.xlsx | numberless
  'Multiple Response Sets', frozen at B3
    A1 'Multiple Response Sets'
    A2 'Name', B2 'Label', C2 'Coded As', D2 'Counted Value', E2 'Data Type', F2 'Elementary Variables'
    A3 '$drinks', B3 'Tea & <coffee>', C3 'Dichotomies', D3 '1 [a]', E3 'Numeric', F3 'q1\nq2\nq3'
    A5 '[a] Using variable value labels'
  'Multiple Response Sets (2)', frozen at B3
    A1 'Multiple Response Sets'
    A2 'Name', B2 'Label', C2 'Coded As', D2 'Counted Value', E2 'Data Type', F2 'Elementary Variables'
    A3 '$colours', B3 '=1+1', C3 'Categories', D3 'N/A', E3 'String', F3 'First colour\nt2'
  'Messages', frozen at B3
    A1 'Messages'
    A2 'Command', B2 'Place', C2 'Level', D2 'Text', E2 'Hint'
    A3 '1', B3 'all.script, line 2, column 55', C3 'Warning', D3 'One or more of the sets specified do not exist... $none'
    A4 '3', B4 'all.script, line 4, column 1', C4 'Error', D4 'Line 4: FREQUENCIES is not a command. The commands here are MRSET and TABULATE.'
    A5 '4', B5 'all.script, line 5', C5 'Fatal', D5 "mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `(*namesIter)[0] == '$'' failed."
    A6 '4', B6 'all.script, line 5', C6 'Hint', D6 'names of sets begin with $; x does not'
    A7 '4', B7 'all.script, line 5', C7 'Aborted', D7 'The command was aborted; the dataset is as it was before it.'
  $ mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' --format xlsx > piped.xlsx
  $ python3 "$TESTDIR/../standalone/output/read_workbook.py" piped.xlsx | grep "^'"
  'Multiple Response Sets', frozen at B3
  $ mrset run no.mrset all.script --output none.xlsx 2> /dev/null
  [2]
  $ TMPDIR=/proc mrset run s.mrset all.script --output none.xlsx
  mrset: The output cannot be kept in /proc: No such file or directory.
  [2]
  $ (trap '' XFSZ; ulimit -f 4; TMPDIR=. mrset run s.mrset long.script --output none.xlsx)
  mrset: The output cannot be kept in .: File too large.
  [2]
  $ ls none.xlsx .*.tmp mrset-* 2> /dev/null
  [2]

A terminal is no place for a page or a workbook. There CSV is shown without what would act on it.

  $ terminal() { script --quiet --return --command "$1" /dev/null < /dev/null | tr -d '\r'; }
  $ export TERM=xterm
  $ terminal "mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' --format html"
  mrset: A page is for a browser: give --output FILE, or send standard output to a file.
  [2]
  $ terminal "mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' --format xlsx"
  mrset: A workbook is for a spreadsheet: give --output FILE, or send standard output to a file.
  [2]
  $ printf '{"fields": [{"name": "q1", "title": "a\\u001b[31mb\\u202ec\\nd"}]}' > hostile.json
  $ printf 'q1\n1\n' | mrset import --schema hostile.json /dev/stdin h.mrset
  h.mrset: 1 variable, 1 case
  $ mrset variables h.mrset --format csv
  Name,Type,Label,Value labels\r (esc)
  q1,numeric,"a\x1b[31mb\xe2\x80\xaec (esc)
  d",\r (esc)
  $ terminal "mrset variables h.mrset --format csv"
  Name,Type,Label,Value labels
  q1,numeric,a\x1b[31mb\u202ec\nd,

Without sets there is a sentence for people and a header for programs.

  $ mrset sets h.mrset --format markdown
  The dataset has no multiple response sets.
  $ mrset sets h.mrset --format csv
  Name,Type,Label,Counted value,Variables\r (esc)

Colour is for terminals.

  $ run="mrset run s.mrset -c 'MRSET /DISPLAY NAME=[\$colours \$none]' -c 'FREQUENCIES'"
  $ terminal "$run"
  \x1b[1m1> MRSET /DISPLAY NAME=[$colours $none]\x1b[0m (esc)
  \x1b[1;35mWarning:\x1b[0m One or more of the sets specified do not exist... $none (esc)
    -c 1, line 1, column 31:
      MRSET /DISPLAY NAME=[$colours $none]
                                    \x1b[1;35m^^^^^\x1b[0m (esc)
  
  \x1b[1mMultiple Response Sets\x1b[0m (esc)
  
  Name      Label  Coded As    Counted Value  Data Type  Elementary Variables
  --------  -----  ----------  -------------  ---------  --------------------
  $colours  =1+1   Categories  N/A            String     First colour
                                                         t2
  
  \x1b[1m2> FREQUENCIES\x1b[0m (esc)
  \x1b[1;31mError:\x1b[0m Line 1: FREQUENCIES is not a command. The commands here are MRSET and TABULATE. (esc)
    -c 2, line 1, column 1:
      FREQUENCIES
      \x1b[1;31m^^^^^^^^^^^\x1b[0m (esc)
  [1]
  $ terminal "$run" | grep -c "$(printf '\033')"
  7
  [1]
  $ NO_COLOR=1 terminal "$run" | grep -c "$(printf '\033')"
  0
  [1]
  $ NO_COLOR= terminal "$run" | grep -c "$(printf '\033')"
  7
  [1]
  $ TERM=dumb terminal "$run" | grep -c "$(printf '\033')"
  0
  [1]
  $ TERM= terminal "$run" | grep -c "$(printf '\033')"
  0
  [1]
  $ terminal "$run --color never" | grep -c "$(printf '\033')"
  0
  [1]
  $ NO_COLOR=1 terminal "$run --color always" | grep -c "$(printf '\033')"
  7
  [1]
  $ terminal "$run --output /dev/stdout" | grep -c "$(printf '\033')"
  0
  [1]
  $ terminal "$run --format markdown" | grep -c "$(printf '\033')"
  0
  [1]
  $ sh -c "$run" | grep -c "$(printf '\033')"
  0
  [1]
  $ sh -c "$run --color always" | grep -c "$(printf '\033')"
  7
  [1]
  $ mrset sets s.mrset --color always
  \x1b[1mMultiple response sets\x1b[0m (esc)
  
  Name      Type       Label           Counted value  Variables
  --------  ---------  --------------  -------------  ---------
  $colours  category   =1+1                           t1
                                                      t2
  
  $drinks   dichotomy  Tea & <coffee>  1              q1
                                                      q2
                                                      q3
  $ mrset sets s.mrset --color sometimes
  mrset: --color: sometimes is not one of auto, always, never.
  Example:
    mrset sets survey.mrset --format json
  Run "mrset sets --help" for its options.
  [2]
