A script of a dataset's sets makes the same sets elsewhere.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset
  $ mrset script s.mrset
  * s.mrset has no multiple response sets.
  $ cat > define.script <<'SCRIPT'
  > MRSET /MDGROUP NAME=$drinks LABEL='It''s "hot".' VALUE=1 VARIABLES=q1 TO q3
  >   CATEGORYLABELS=COUNTEDVALUES LABELSOURCE=VARLABEL.
  > MRSET /MCGROUP NAME=$Colours LABEL="/* no comment */" VARIABLES=t2 t1.
  > MRSET /MDGROUP NAME=$red VARIABLES=t1 t2 VALUE="'red'".
  > MRSET /MDGROUP NAME=$half VARIABLES=q1 n1 VALUE=-0.50.
  > SCRIPT
  $ mrset run s.mrset define.script > /dev/null
  [1]
  $ mrset script s.mrset --output sets.script
  mrset: The command of $half makes the set and reports an error: The counted value -0.50 is not an integer.
  $ cat sets.script
  * Multiple response sets of s.mrset. A set that has one of these names already is replaced in its place.
  
  MRSET /MDGROUP NAME=$drinks
    LABEL='It''s "hot".'
    VARIABLES=q1 q2 q3
    VALUE=1
    CATEGORYLABELS=COUNTEDVALUES
    LABELSOURCE=VARLABEL.
  
  MRSET /MCGROUP NAME=$Colours
    LABEL='/* no comment */'
    VARIABLES=t2 t1.
  
  MRSET /MDGROUP NAME=$red
    VARIABLES=t1 t2
    VALUE="'red'".
  
  * The command of $half makes the set and reports an error: The counted value -0.50 is not an integer.
  
  MRSET /MDGROUP NAME=$half
    VARIABLES=q1 n1
    VALUE=-0.50.
  $ small other.mrset
  $ mrset run other.mrset sets.script > /dev/null
  [1]
  $ mrset sets s.mrset --format json > s.json; mrset sets other.mrset --format json | cmp s.json -
  $ mrset diff s.mrset other.mrset
  The multiple response sets are the same.

Sets that the other dataset has already stay, and those of the same name keep their place; --delete-all leaves only the
script's.

  $ mrset run other.mrset -c 'MRSET /DELETE NAME=ALL /MCGROUP NAME=$own VARIABLES=q1 q2 /MCGROUP NAME=$RED VARIABLES=q1 q2' > /dev/null
  $ mrset run other.mrset sets.script > /dev/null
  [1]
  $ mrset sets other.mrset --format json | grep -o '"name":"[^"]*"'
  "name":"$own"
  "name":"$red"
  "name":"$drinks"
  "name":"$Colours"
  "name":"$half"
  $ mrset script --delete-all s.mrset 2> /dev/null | tee all.script | head -3
  * Multiple response sets of s.mrset. All sets of the dataset on which this runs are deleted first.
  
  MRSET /DELETE NAME=ALL.
  $ mrset run other.mrset all.script > /dev/null
  [1]
  $ mrset diff s.mrset other.mrset
  The multiple response sets are the same.

Chosen sets, in whatever case, come in the order in which they are stored.

  $ mrset script s.mrset '$RED' '$colours' '$red'
  * Multiple response sets of s.mrset. A set that has one of these names already is replaced in its place.
  
  MRSET /MCGROUP NAME=$Colours
    LABEL='/* no comment */'
    VARIABLES=t2 t1.
  
  MRSET /MDGROUP NAME=$red
    VARIABLES=t1 t2
    VALUE="'red'".
  $ mrset script s.mrset '$red' '$none' --output none.script
  mrset: The dataset s.mrset has no set $none.
  [2]
  $ mrset script s.mrset "$unset"
  mrset: The name of a set is empty; in a shell, put names in single quotes, as in '$drinks'.
  [2]

The sets as they were, by the number of a change.

  $ mrset script s.mrset@1
  * Multiple response sets of s.mrset@1. A set that has one of these names already is replaced in its place.
  
  MRSET /MDGROUP NAME=$drinks
    LABEL='It''s "hot".'
    VARIABLES=q1 q2 q3
    VALUE=1
    CATEGORYLABELS=COUNTEDVALUES
    LABELSOURCE=VARLABEL.
  $ mrset script s.mrset@1 --output s.mrset
  mrset: The output file s.mrset is the dataset that is read; give another one.
  [2]

A set that no command makes is left out, with the reason.

  $ printf 'Q1,q2,t1,t2\n1,0,red,blue\n' > less.csv
  $ mrset import --replace less.csv other.mrset
  other.mrset: 4 variables, 1 case
  mrset: The set $drinks takes its category labels from the counted value 1, which has no label in the variable Q1.
  mrset: The set $drinks takes its category labels from the counted value 1, which has no label in the variable q2.
  mrset: The set $drinks has the variable q3, which no longer exists.
  mrset: The set $red counts 'red', which is wider than the variable t1.
  mrset: The set $half has the variable n1, which no longer exists.
  $ sqlite3 other.mrset "UPDATE mr_set SET label = 'two' || char(10) || 'lines.' || char(10) WHERE name = '\$Colours'"
  $ mrset script other.mrset > rest.script
  mrset: The set $drinks cannot be written as a command: The variable q3 is not in the dataset.
  mrset: The set $Colours cannot be written as a command: its label holds a line end, which no quoted text can.
  mrset: The set $red cannot be written as a command: CountVal 'red' is wider than the narrowest variable.
  mrset: The set $half cannot be written as a command: The variable n1 is not in the dataset.
  [1]
  $ cat rest.script
  * Multiple response sets of other.mrset. A set that has one of these names already is replaced in its place.
  
  * The set $drinks cannot be written as a command: The variable q3 is not in the dataset.
  
  * The set $Colours cannot be written as a command: its label holds a line end, which no quoted text can.
  
  * The set $red cannot be written as a command: CountVal 'red' is wider than the narrowest variable.
  
  * The set $half cannot be written as a command: The variable n1 is not in the dataset.
  $ mrset run other.mrset rest.script

The dataset is only read, and never overwritten by its script.

  $ cp s.mrset before.mrset; chmod 444 s.mrset
  $ mrset script s.mrset > /dev/null 2>&1; cmp s.mrset before.mrset
  $ mrset script s.mrset --output ./s.mrset
  mrset: The output file ./s.mrset is the dataset that is read; give another one.
  [2]
  $ mrset script missing.mrset
  mrset: missing.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv missing.mrset
  [2]
  $ mrset script s.mrset --output no/such/file '$red'
  mrset: The output file no/such/file cannot be written: No such file or directory.
  [2]

On a terminal, characters that would act on it are shown as escapes; elsewhere they are written as they are.

  $ mrset run other.mrset -c "MRSET /DELETE NAME=ALL /MCGROUP NAME=\$bell LABEL='$(printf 'a\ab')' VARIABLES=t1 t2" > /dev/null
  $ mrset script other.mrset | grep -c "$(printf 'a\ab')"
  1
  $ script -qec 'mrset script other.mrset' /dev/null < /dev/null | tr -d '\r'
  * Multiple response sets of other.mrset. A set that has one of these names already is replaced in its place.
  
  MRSET /MCGROUP NAME=$bell
    LABEL='a\x07b'
    VARIABLES=t1 t2.
  mrset: Characters that would act on the terminal are shown as escapes; --output writes them as they are.

Help.

  $ mrset script --help
  Write the commands that make a dataset's sets
  Usage: mrset script [OPTIONS] DATASET [SET...]
  
  Positionals:
    DATASET                 Dataset file, or DATASET@N: its sets as change N left
                            them
    SET                     Names of the sets to write; without any, all
  
  Options:
    -h,--help               Show this help
    --output FILE           Write the script to this file
    --delete-all            Begin by deleting all sets of the dataset on which the
                            script runs
    --lock-timeout SECONDS  How long to wait for a locked dataset; 30 unless given
  
  Exit status: 0 all sets are written, 1 a set cannot be written as a command,
  2 wrong usage or an unusable file.
  Example:
    mrset script survey.mrset --output sets.script
    mrset run other.mrset sets.script
