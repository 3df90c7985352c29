Whole surveys: sets are defined with all kinds of keywords, displayed, redefined, deleted, and kept when the data change.

  $ . "$TESTDIR/setup.sh"
  $ if [ ! -d "$SURVEYS" ]; then echo "The real surveys are not here." >&2; exit 80; fi

  $ mrset import --schema "$SURVEYS/thanksgiving.schema.json" "$SURVEYS/thanksgiving.csv" t.mrset
  t.mrset: 102 variables, 1058 cases
  $ mrset run t.mrset -c "MRSET /MDGROUP NAME=\$sides LABEL='Side dishes' VARIABLES=side1 TO side14 VALUE=1 CATEGORYLABELS=COUNTEDVALUES LABELSOURCE=VARLABEL /MCGROUP NAME=\$pies LABEL='Pies' VARIABLES=pie_t1 TO pie_t12 /DISPLAY NAME=ALL"
  1> MRSET /MDGROUP NAME=$sides LABEL='Side dishes' VARIABLES=side1 TO side14 VALUE=1 CATEGORYLABELS=COUNTEDVALUES LABELSOURCE=VARLABEL /MCGROUP NAME=$pies LABEL='Pies' VARIABLES=pie_t1 TO pie_t12 /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name    Label                 Coded As     Counted  Data     Elementary
                                             Value    Type     Variables
  ------  --------------------  -----------  -------  -------  -------------------
  $pies   Pies                  Categories   N/A      String   Apple
                                                               Buttermilk
                                                               Cherry
                                                               Chocolate
                                                               Coconut cream
                                                               Key lime
                                                               Peach
                                                               Pecan
                                                               Pumpkin
                                                               Sweet Potato
                                                               None
                                                               Other (please
                                                                 specify)
  
  $sides  (use variable label)  Dichotomies  1 [a]    Numeric  side1
                                                               side2
                                                               side3
                                                               side4
                                                               side5
                                                               side6
                                                               side7
                                                               side8
                                                               side9
                                                               side10
                                                               side11
                                                               side12
                                                               side13
                                                               side14
  
  [a] Using variable value labels

A second process displays the same.

  $ mrset run t.mrset -c 'MRSET /DISPLAY NAME=[$SIDES $Pies]'
  1> MRSET /DISPLAY NAME=[$SIDES $Pies]
  
  Multiple Response Sets
  
  Name    Label                 Coded As     Counted  Data     Elementary
                                             Value    Type     Variables
  ------  --------------------  -----------  -------  -------  -------------------
  $pies   Pies                  Categories   N/A      String   Apple
                                                               Buttermilk
                                                               Cherry
                                                               Chocolate
                                                               Coconut cream
                                                               Key lime
                                                               Peach
                                                               Pecan
                                                               Pumpkin
                                                               Sweet Potato
                                                               None
                                                               Other (please
                                                                 specify)
  
  $sides  (use variable label)  Dichotomies  1 [a]    Numeric  side1
                                                               side2
                                                               side3
                                                               side4
                                                               side5
                                                               side6
                                                               side7
                                                               side8
                                                               side9
                                                               side10
                                                               side11
                                                               side12
                                                               side13
                                                               side14
  
  [a] Using variable value labels
  $ mrset sets t.mrset --format json
  {"sets":[{"name":"$pies","type":"category","label":"Pies","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["pie_t1","pie_t2","pie_t3","pie_t4","pie_t5","pie_t6","pie_t7","pie_t8","pie_t9","pie_t10","pie_t11","pie_t12"]},{"name":"$sides","type":"dichotomy","label":"Side dishes","countedValue":"1","labelFromVariable":true,"categoryLabelsFromCountedValue":true,"variables":["side1","side2","side3","side4","side5","side6","side7","side8","side9","side10","side11","side12","side13","side14"]}]}

Redefined in other letter case: the place in the list stays, the rest is new.

  $ mrset run t.mrset -c "MRSET /MDGROUP NAME=\$SIDES VARIABLES=side1 side3 side2 VALUE=0 CATEGORYLABELS=VARLABELS"
  1> MRSET /MDGROUP NAME=$SIDES VARIABLES=side1 side3 side2 VALUE=0 CATEGORYLABELS=VARLABELS
  $ mrset run t.mrset -c "MRSET /MDGROUP NAME=\$desserts LABEL='Desserts' VARIABLES=dessert1 TO dessert11 VALUE=1 /MDGROUP NAME=\$apple LABEL='Apple' VARIABLES=pie_t1 dessert_t1 VALUE='Apple'"
  1> MRSET /MDGROUP NAME=$desserts LABEL='Desserts' VARIABLES=dessert1 TO dessert11 VALUE=1 /MDGROUP NAME=$apple LABEL='Apple' VARIABLES=pie_t1 dessert_t1 VALUE='Apple'
  Warning: CountVal 1 label different in the variables.
    -c 1, line 1, column 86:
      ...ABLES=dessert1 TO dessert11 VALUE=1 /MDGROUP NAME=$apple LABEL='Apple'...
                                           ^
  Warning: CountVal 1 label different in the variables.
  Warning: CountVal 1 label different in the variables.
  Warning: CountVal 1 label different in the variables.
  Warning: CountVal 1 label different in the variables.
  Warning: CountVal 1 label different in the variables.
  Warning: CountVal 1 label different in the variables.
  Warning: CountVal 1 label different in the variables.
  Warning: CountVal 1 label different in the variables.
  Warning: CountVal 1 label different in the variables.
  hint: the variables of $desserts label 1 differently, so each label may be an answer: CATEGORYLABELS=COUNTEDVALUES names the answers by these labels
  hint: no case has chosen dessert_t1 of $apple
  $ mrset sets t.mrset
  Multiple response sets
  
  Name       Type       Label     Counted value  Variables
  ---------  ---------  --------  -------------  ----------
  $pies      category   Pies                     pie_t1
                                                 pie_t2
                                                 pie_t3
                                                 pie_t4
                                                 pie_t5
                                                 pie_t6
                                                 pie_t7
                                                 pie_t8
                                                 pie_t9
                                                 pie_t10
                                                 pie_t11
                                                 pie_t12
  
  $SIDES     dichotomy            0              side1
                                                 side3
                                                 side2
  
  $desserts  dichotomy  Desserts  1              dessert1
                                                 dessert2
                                                 dessert3
                                                 dessert4
                                                 dessert5
                                                 dessert6
                                                 dessert7
                                                 dessert8
                                                 dessert9
                                                 dessert10
                                                 dessert11
  
  $apple     dichotomy  Apple     Apple          pie_t1
                                                 dessert_t1

What is wrong with a set is told, and nothing is saved.

  $ for command in '/MDGROUP NAME=$x VARIABLES=side1 side_t1 VALUE=1' '/MDGROUP NAME=$x VARIABLES=side1 side2 VALUE="1"' '/MDGROUP NAME=$x VARIABLES=side_t1 side_t2 VALUE=1' '/MDGROUP NAME=$x VARIABLES=side1 TO side14 VALUE=1 LABELSOURCE=VARLABEL' '/MDGROUP NAME=$x VARIABLES=side1 TO side14 VALUE=2 CATEGORYLABELS=COUNTEDVALUES' '/MCGROUP NAME=$x VARIABLES=side1' '/MCGROUP NAME=$x VARIABLES=side1 side2 VALUE=1' '/MDGROUP NAME=$x VARIABLES=q1 q2 VALUE="Turkey and ham"' '/MDGROUP' '/MCGROUP' '/DISPLAY' '/DELETE'; do
  >   mrset run t.mrset -c "MRSET /DELETE NAME=ALL $command" | grep Error:
  > done
  Error: side_t1 variable has a different type.
  Error: $x:variables are numbers and countedval is string.
  Error: $x:variables are string and countedval is number.
  Error: $x:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES...
  Error: No countedval label for variable side1...
  Error: Only one variable side1 was found.
  Error: Unexpected VALUE keyword in MCGROUP subcommand.
  Error: CountVal Turkey and ham is wider than the narrowest variable.
  Error: Empty MDGroup found
  Error: Empty MCGroup found
  Error: Empty Display found
  Error: Empty Delete found
  [1]
  $ mrset sets t.mrset --format json | grep -o '"name":"[^"]*"'
  "name":"$pies"
  "name":"$SIDES"
  "name":"$desserts"
  "name":"$apple"

Deleted.

  $ mrset run t.mrset -c 'MRSET /DELETE NAME=[$Apple $apple] /DISPLAY NAME=[$apple $desserts]'
  1> MRSET /DELETE NAME=[$Apple $apple] /DISPLAY NAME=[$apple $desserts]
  Warning: $apple MRSET can not be found in the dataset.
  Warning: One or more of the sets specified do not exist... $apple
  
  Multiple Response Sets
  
  Name       Label     Coded As     Counted  Data     Elementary Variables
                                    Value    Type
  ---------  --------  -----------  -------  -------  ----------------------------
  $desserts  Desserts  Dichotomies  1        Numeric  Which of these desserts do
                                                        you typically have at
                                                        Thanksgiving dinner?:
                                                        Apple cobbler
                                                      Which of these desserts do
                                                        you typically have at
                                                        Thanksgiving dinner?:
                                                        Blondies
                                                      Which of these desserts do
                                                        you typically have at
                                                        Thanksgiving dinner?:
                                                        Brownies
                                                      Which of these desserts do
                                                        you typically have at
                                                        Thanksgiving dinner?:
                                                        Carrot cake
                                                      Which of these desserts do
                                                        you typically have at
                                                        Thanksgiving dinner?:
                                                        Cheesecake
                                                      Which of these desserts do
                                                        you typically have at
                                                        Thanksgiving dinner?:
                                                        Cookies
                                                      Which of these desserts do
                                                        you typically have at
                                                        Thanksgiving dinner?:
                                                        Fudge
                                                      Which of these desserts do
                                                        you typically have at
                                                        Thanksgiving dinner?: Ice
                                                        cream
                                                      Which of these desserts do
                                                        you typically have at
                                                        Thanksgiving dinner?:
                                                        Peach cobbler
                                                      Which of these desserts do
                                                        you typically have at
                                                        Thanksgiving dinner?: None
                                                      Which of these desserts do
                                                        you typically have at
                                                        Thanksgiving dinner?:
                                                        Other (please specify)

The next wave lacks most side dishes: the sets stay, and show what no longer exists.

  $ printf 'id,side1,side2,pie_t1\n1,1,0,Apple\n' > wave2.csv
  $ mrset import --replace wave2.csv t.mrset
  t.mrset: 4 variables, 1 case
  mrset: The set $desserts has the variable dessert1, which no longer exists.
  mrset: The set $desserts has the variable dessert2, which no longer exists.
  mrset: The set $desserts has the variable dessert3, which no longer exists.
  mrset: The set $desserts has the variable dessert4, which no longer exists.
  mrset: The set $desserts has the variable dessert5, which no longer exists.
  mrset: The set $desserts has the variable dessert6, which no longer exists.
  mrset: The set $desserts has the variable dessert7, which no longer exists.
  mrset: The set $desserts has the variable dessert8, which no longer exists.
  mrset: The set $desserts has the variable dessert9, which no longer exists.
  mrset: The set $desserts has the variable dessert10, which no longer exists.
  mrset: The set $desserts has 1 more problem.
  mrset: The set $pies has the variable pie_t2, which no longer exists.
  mrset: The set $pies has the variable pie_t3, which no longer exists.
  mrset: The set $pies has the variable pie_t4, which no longer exists.
  mrset: The set $pies has the variable pie_t5, which no longer exists.
  mrset: The set $pies has the variable pie_t6, which no longer exists.
  mrset: The set $pies has the variable pie_t7, which no longer exists.
  mrset: The set $pies has the variable pie_t8, which no longer exists.
  mrset: The set $pies has the variable pie_t9, which no longer exists.
  mrset: The set $pies has the variable pie_t10, which no longer exists.
  mrset: The set $pies has the variable pie_t11, which no longer exists.
  mrset: The set $pies has 1 more problem.
  mrset: The set $SIDES has the variable side3, which no longer exists.
  $ mrset run t.mrset -c 'MRSET /DISPLAY NAME=ALL'
  1> MRSET /DISPLAY NAME=ALL
  
  Multiple Response Sets
  
  Name       Label     Coded As     Counted  Data     Elementary Variables
                                    Value    Type
  ---------  --------  -----------  -------  -------  ---------------------------
  $desserts  Desserts  Dichotomies  1        Unknown  dessert1(no longer exists)
                                                      dessert2(no longer exists)
                                                      dessert3(no longer exists)
                                                      dessert4(no longer exists)
                                                      dessert5(no longer exists)
                                                      dessert6(no longer exists)
                                                      dessert7(no longer exists)
                                                      dessert8(no longer exists)
                                                      dessert9(no longer exists)
                                                      dessert10(no longer exists)
                                                      dessert11(no longer exists)
  
  $pies      Pies      Categories   N/A      String   pie_t1
                                                      pie_t2(no longer exists)
                                                      pie_t3(no longer exists)
                                                      pie_t4(no longer exists)
                                                      pie_t5(no longer exists)
                                                      pie_t6(no longer exists)
                                                      pie_t7(no longer exists)
                                                      pie_t8(no longer exists)
                                                      pie_t9(no longer exists)
                                                      pie_t10(no longer exists)
                                                      pie_t11(no longer exists)
                                                      pie_t12(no longer exists)
  
  $SIDES               Dichotomies  0        Numeric  side1
                                                      side3(no longer exists)
                                                      side2

The other survey.

  $ mrset import --schema "$SURVEYS/star_wars.schema.json" "$SURVEYS/star_wars.csv" s.mrset
  s.mrset: 44 variables, 1186 cases
  $ mrset run s.mrset -c "MRSET /MDGROUP NAME=\$seen LABEL='Films seen' VARIABLES=film1 TO film6 VALUE=1 CATEGORYLABELS=COUNTEDVALUES /MCGROUP NAME=\$titles VARIABLES=film_t1 TO film_t6 /MCGROUP NAME=\$ranks LABEL='Ranks' VARIABLES=rank1 TO rank6 /MCGROUP NAME=\$views VARIABLES=view1 TO view14"
  1> MRSET /MDGROUP NAME=$seen LABEL='Films seen' VARIABLES=film1 TO film6 VALUE=1 CATEGORYLABELS=COUNTEDVALUES /MCGROUP NAME=$titles VARIABLES=film_t1 TO film_t6 /MCGROUP NAME=$ranks LABEL='Ranks' VARIABLES=rank1 TO rank6 /MCGROUP NAME=$views VARIABLES=view1 TO view14
  $ mrset run s.mrset -c 'MRSET /DISPLAY NAME=[$views $ranks $seen $nothing]'
  1> MRSET /DISPLAY NAME=[$views $ranks $seen $nothing]
  Warning: One or more of the sets specified do not exist... $nothing
    -c 1, line 1, column 42:
      MRSET /DISPLAY NAME=[$views $ranks $seen $nothing]
                                               ^^^^^^^^
  
  Multiple Response Sets
  
  Name    Label       Coded As     Counted  Data     Elementary Variables
                                   Value    Type
  ------  ----------  -----------  -------  -------  -----------------------------
  $ranks  Ranks       Categories   N/A      Numeric  Rank of Star Wars: Episode I
                                                       The Phantom Menace
                                                     Rank of Star Wars: Episode II
                                                       Attack of the Clones
                                                     Rank of Star Wars: Episode
                                                       III Revenge of the Sith
                                                     Rank of Star Wars: Episode IV
                                                       A New Hope
                                                     Rank of Star Wars: Episode V
                                                       The Empire Strikes Back
                                                     Rank of Star Wars: Episode VI
                                                       Return of the Jedi
  
  $seen   Films seen  Dichotomies  1 [a]    Numeric  film1
                                                     film2
                                                     film3
                                                     film4
                                                     film5
                                                     film6
  
  $views              Categories   N/A      String   View of Han Solo
                                                     View of Luke Skywalker
                                                     View of Princess Leia Organa
                                                     View of Anakin Skywalker
                                                     View of Obi Wan Kenobi
                                                     View of Emperor Palpatine
                                                     View of Darth Vader
                                                     View of Lando Calrissian
                                                     View of Boba Fett
                                                     View of C-3P0
                                                     View of R2 D2
                                                     View of Jar Jar Binks
                                                     View of Padme Amidala
                                                     View of Yoda
  
  [a] Using variable value labels
  $ mrset sets s.mrset --format json
  {"sets":[{"name":"$ranks","type":"category","label":"Ranks","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["rank1","rank2","rank3","rank4","rank5","rank6"]},{"name":"$seen","type":"dichotomy","label":"Films seen","countedValue":"1","labelFromVariable":false,"categoryLabelsFromCountedValue":true,"variables":["film1","film2","film3","film4","film5","film6"]},{"name":"$titles","type":"category","label":"","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["film_t1","film_t2","film_t3","film_t4","film_t5","film_t6"]},{"name":"$views","type":"category","label":"","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["view1","view2","view3","view4","view5","view6","view7","view8","view9","view10","view11","view12","view13","view14"]}]}
