Tables of sets: the command in scripts and the subcommand are one.

  $ source "$TESTDIR/setup.sh"
  $ breakfast b.mrset
  $ mrset run b.mrset -c 'MRSET /MDGROUP NAME=$drinks LABEL="Drinks" VARIABLES=drink1 TO drink5 VALUE=1
  >   /MCGROUP NAME=$toppings VARIABLES=topping1 TO topping4' > /dev/null

A script has the table after its command, and options give the same table.

  $ mrset run b.mrset -c 'TABULATE $drinks /BY=vegetarian /NET="Hot drinks": drink1 drink2' | tail -n +3 > command
  $ mrset tabulate b.mrset '$drinks' --by vegetarian --net 'Hot drinks: drink1 drink2' > options
  $ cmp command options && cat options

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
  $ for format in markdown csv html xlsx; do
  >   mrset tabulate b.mrset '$drinks' '$toppings' --format $format > out.$format; echo $?
  > done
  $ head -n 3 out.markdown
  $ mrset tabulate b.mrset '$drinks' --output out.csv; cut -d, -f9,11-14 out.csv | head -n 2
  $ mrset tabulate b.mrset '$drinks' '$toppings' --format json | cut -c 1-40
  $ mrset tabulate b.mrset '$drinks' --chart --show cases | head -n 5
  $ LC_ALL=C mrset tabulate b.mrset '$drinks' --chart --show cases | tail -n +5 | head -n 1

What a net's label holds, the options' words and numbers of any sign need no other quotes.

  $ mrset tabulate b.mrset '$toppings' --net "Children's / sweet: Honey Jam" --none -1 | grep sweet

Only the command is given, not what it finds: a dry run has its own sets, nothing is saved and no module is needed.

  $ mrset run --dry-run b.mrset -c 'MRSET /DELETE NAME=[$drinks]' -c 'TABULATE $drinks'
  $ MRSET_MODULE=/nowhere mrset run b.mrset -c 'tab $drinks /sho=cou /dec=0 /mis=1' -c 'tab $toppings /sho=cou' | tail -n 12
  $ mrset log b.mrset | grep -c change

Wrong names are errors of the command, and wrong options wrong usage.

  $ mrset tabulate b.mrset '$drnks'
  $ mrset tabulate b.mrset '$drinks' --by vegetarain --by born
  $ mrset tabulate b.mrset '$drinks' --where '$toppings HAS Jam AND regio = 1'
  $ mrset tabulate b.mrset drinks
  $ mrset tabulate b.mrset "$drinks"
  $ mrset tabulate b.mrset $drinks
  $ mrset tabulate b.mrset '$drinks' --base askd
  $ mrset tabulate b.mrset '$drinks' --where 'region = "N'
  $ mrset tabulate b.mrset '$drinks' --where 'region = N'
  $ mrset tabulate b.mrset '$drinks' --by 'region /WEIGHT=minutes'
  $ mrset tabulate b.mrset '$drinks' --test=x
  $ mrset tabulate b.mrset '$drinks' --minbase 0
  $ mrset tabulate b.mrset '$drinks' --base all --base asked
  $ mrset tabulate b.mrset '$drinks' --output b.mrset
  $ mrset run b.mrset -c "TABULATE $drinks /BY=region"
  $ mrset run b.mrset -c 'TABULAT $drinks
  > MRSET /DISPLAY NAME=ALL'
  $ mrset TABULATE b.mrset
