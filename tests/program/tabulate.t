Tables of sets: the command in scripts and the subcommand are one.

  $ source "$TESTDIR/setup.sh"
  $ breakfast b.mrset
  $ mrset run b.mrset -c 'MRSET /MDGROUP NAME=$drinks LABEL="Drinks" VARIABLES=drink1 TO drink5 VALUE=1
  >   /MCGROUP NAME=$toppings VARIABLES=topping1 TO topping4' > /dev/null

A script has the table after its command, and options give the same table.

  $ mrset run b.mrset -c 'TABULATE $drinks /BY=vegetarian /NET="Hot drinks": drink1 drink2' | tail -n +3 > command
  $ mrset tabulate b.mrset '$drinks' --by vegetarian --net 'Hot drinks: drink1 drink2' > options
  $ cmp command options && cat options
  Drinks ($drinks)
  
                                   vegetarian ----------------
                    Total          0              1
                            % of           % of           % of
                    Count  cases   Count  cases   Count  cases
  ----------------  -----  -----   -----  -----   -----  -----
  Tea                  96   45.7      36   38.7      60   51.3
  Coffee              124   59.0      58   62.4      66   56.4
  Juice                80   38.1      32   34.4      48   41.0
  Milk                 55   26.2      27   29.0      28   23.9
  Water               118   56.2      56   60.2      62   53.0
  Hot drinks (net)    168   80.0      74   79.6      94   80.3
  ----------------  -----  -----   -----  -----   -----  -----
  All cases           240            110            130
  Answered (base)     210             93            117
  None chosen          18             13              5
  Missing              12              4              8
  
  18 cases chose none and are not in the base; with BASE=ASKED it is 228.

So do all the forms.

  $ mrset run b.mrset -c 'TABULATE $drinks /BY=region*vegetarian $toppings /TEST=BONFERRONI /SHOW=CASES INTERVAL
  >   /WEIGHT=minutes /WHERE=born < 1980 AND NOT MISSING(region) /BASE=ALL /SORT=ASCENDING /LAST=drink1
  >   /CONFIDENCE=90 /MINBASE=10 /DECIMALS=2' --format json > command.json
  $ mrset tabulate b.mrset '$drinks' --by 'region*vegetarian' --by '$toppings' --test=bonferroni --show cases,interval \
  >   --weight minutes --where 'born < 1980 AND NOT MISSING(region)' --base all --sort ascending --last drink1 \
  >   --confidence 90 --minbase 10 --decimals 2 --format json > options.json
  $ python3 - <<'END'
  > import json
  > command = json.load(open('command.json'))
  > table = json.load(open('options.json'))
  > print(command['procedure'], command['status'], command['items'] == [table])
  > print(table['kind'], table['set'], table['base'], table['weight'], table['where'], len(table['columns']))
  > END
  Tabulate ok True
  tabulation $drinks all minutes born < 1980 AND NOT MISSING(region) 13
  $ for format in markdown csv html xlsx; do
  >   mrset tabulate b.mrset '$drinks' '$toppings' --format $format > out.$format; echo $?
  > done
  0
  $drinks: 18 cases chose none and are not in the base; with BASE=ASKED it is 228.
  0
  0
  0
  $ head -n 3 out.markdown
  **Drinks (\$drinks)**
  
  |  | Total<br>Count | Total<br>% of cases |
  $ mrset tabulate b.mrset '$drinks' --output out.csv; cut -d, -f9,11-14 out.csv | head -n 2
  $drinks: 18 cases chose none and are not in the base; with BASE=ASKED it is 228.
  column,label,net,cases,count
  Total,Tea,false,96,96
  $ mrset tabulate b.mrset '$drinks' '$toppings' --format json | cut -c 1-40
  {"kind":"tabulation","set":"$drinks","la
  {"kind":"tabulation","set":"$toppings","
  $ mrset tabulate b.mrset '$drinks' --chart --width 30 --show cases | grep -E '^(Tea|Coffee)'
  Tea      45.7  \xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x8a (esc)
  Coffee   59.0  \xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x88\xe2\x96\x88 (esc)
  $ LC_ALL=C mrset tabulate b.mrset '$drinks' --chart --width 30 --show cases | grep -E '^(Tea|Coffee)'
  Tea      45.7  ########
  Coffee   59.0  ##########

A net's label may hold quotes and slashes, and a value its sign.

  $ mrset tabulate b.mrset '$toppings' --net "Children's / sweet: Honey Jam" --none -1 | grep sweet
  Children's / sweet (net)    130   67.0

  $ mrset tabulate b.mrset '$drinks' --net "'tis hot: drink1 drink2" --net '"hot: very" : drink1' | grep net
  'tis hot (net)     168   80.0
  hot: very (net)     96   45.7

A dry run has its own sets. Nothing is saved, and no module is needed.

  $ mrset run --dry-run b.mrset -c 'MRSET /DELETE NAME=[$drinks]' -c 'TABULATE $drinks'
  1> MRSET /DELETE NAME=[$drinks]
  Dry run: $drinks would be deleted.
  
  2> TABULATE $drinks
  Error: Unknown set: $drinks.
    -c 2, line 1, column 10:
      TABULATE $drinks
               ^^^^^^^
  [1]
  $ MRSET_MODULE=/nowhere mrset run b.mrset -c 'tab $drinks /sho=cou /dec=0 /min=1' -c 'tab $toppings /sho=cou' | tail -n 12
  $toppings
  
          Total
          Count
  ------  -----
  Butter    116
  Cheese     78
  Honey      63
  Jam       101
  
  Answered 194, none chosen 0, missing 46 of 240 cases.
  Base: 194 cases that answered.
  $ mrset sets b.mrset --format csv | cut -d, -f1 | grep '^\$'
  $drinks
  $toppings

Wrong names are errors of the command, and wrong options wrong usage.

  $ mrset tabulate b.mrset '$drnks'
  mrset: Unknown set: $drnks.
  Did you mean $drinks?
  [1]
  $ mrset tabulate b.mrset '$drinks' --by vegetarain --by born
  mrset: --by: Unknown variable: vegetarain.
  Did you mean vegetarian?
  [1]
  $ mrset tabulate b.mrset '$drinks' --where '$toppings HAS Jam AND regio = 1'
  mrset: --where: Unknown variable: regio.
  Did you mean region?
  [1]
  $ mrset tabulate b.mrset drinks
  mrset: The name of a set begins with $, in single quotes: '$drinks'.
  [2]
  $ mrset tabulate b.mrset "$drinks"
  mrset: The name of a set is empty: put it in single quotes, as in '$drinks'.
  [2]
  $ mrset tabulate b.mrset $drinks
  mrset: SET is missing.
  Example:
    mrset tabulate survey.mrset '$drinks' --by region --where 'born < 1980'
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --base askd
  mrset: --base takes answered, asked, complete or all: askd.
  Did you mean asked?
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --where 'region = "N'
  mrset: --where: A string is not closed on its line.
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --where 'region = N'
  mrset: --where: A number or a text in quotes must follow a comparison.
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --by 'region /WEIGHT=minutes'
  mrset: Unexpected after the value of --by: /.
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --test=x
  mrset: --test takes holm or bonferroni: x.
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --minbase 0
  mrset: --minbase takes a whole number, from 1 to 1,000,000,000,000: 0.
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --by region --by '*vegetarian'
  mrset: --by takes variables, pairs such as region*sex, and sets: *.
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --by region --by REGION
  mrset: --by: REGION is listed twice.
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --test
  mrset: --test needs --by, which the set is tested against.
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --by region --test --test=bonferroni
  mrset: --test can be given only once.
  Example:
    mrset tabulate survey.mrset '$drinks' --by region --where 'born < 1980'
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --where 'born = "1980"'
  mrset: --where: born is numeric: write 1980 without quotes.
  [1]
  $ mrset tabulate b.mrset '$drinks' --base all --base asked
  mrset: --base can be given only once.
  Example:
    mrset tabulate survey.mrset '$drinks' --by region --where 'born < 1980'
  Run "mrset tabulate --help" for its options.
  [2]
  $ mrset tabulate b.mrset '$drinks' --output b.mrset
  mrset: The output file b.mrset is what is counted; give another one.
  [2]
  $ mrset run b.mrset -c "TABULATE $drinks /BY=region"
  1> TABULATE  /BY=region
  Error: TABULATE needs the name of a set, such as $drinks.
    -c 1, line 1, column 11:
      TABULATE  /BY=region
                ^
  hint: no set is named after TABULATE: a shell replaces $names in a command that is not in single quotes
  [1]
  $ mrset run b.mrset -c 'TABULAT $drinks
  > MRSET /DISPLAY NAME=ALL'
  1> TABULAT $drinks
     MRSET /DISPLAY NAME=ALL
  Error: The name of a set begins with $: MRSET.
    -c 1, line 2, column 1:
      MRSET /DISPLAY NAME=ALL
      ^^^^^
  hint: line 1 has no period at its end
  [1]
  $ mrset TABULATE b.mrset
  mrset: Unknown subcommand: TABULATE.
  Did you mean tabulate?
  Run "mrset --help" for the subcommands.
  [2]
