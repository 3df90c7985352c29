Wrong use is told in one sentence with the next step, and exit status 2.

  $ . "$TESTDIR/setup.sh"
  $ mrset
  mrset: A subcommand is missing.
  To begin:
    mrset import survey.csv survey.mrset    creates a dataset from a CSV survey
    mrset variables survey.mrset            lists its variables
    mrset shell survey.mrset                takes commands
  Run "mrset --help" for all subcommands.
  [2]
  $ mrset frobnicate
  mrset: Unknown subcommand: frobnicate.
  Run "mrset --help" for the subcommands.
  [2]

What is given in place of a subcommand tells what is wanted: a survey, a dataset, another file, a command.

  $ mrset survey.csv
  mrset: Unknown subcommand: survey.csv.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  [2]
  $ mrset "my survey's.csv"
  mrset: Unknown subcommand: my survey's.csv.
  To create a dataset from a CSV survey:
    mrset import 'my survey'\''s.csv' 'my survey'\''s.mrset'
  [2]
  $ printf 'q1,q2\n1,0\n' > tiny.csv
  $ mrset import tiny.csv tiny.mrset
  tiny.mrset: 2 variables, 1 case
  $ mrset tiny.mrset
  mrset: Unknown subcommand: tiny.mrset.
  To work with this dataset:
    mrset shell tiny.mrset
    mrset run tiny.mrset -c 'MRSET /DISPLAY NAME=ALL'
  [2]
  $ echo 'MRSET /DISPLAY NAME=ALL.' > commands.txt
  $ mrset commands.txt
  mrset: Unknown subcommand: commands.txt.
  To run the commands of a script, or to create a dataset from a CSV survey:
    mrset run survey.mrset commands.txt
    mrset import commands.txt commands.mrset
  [2]
  $ mrset MRSET /DISPLAY NAME=ALL
  mrset: Unknown subcommand: MRSET.
  A command comes after -c, in single quotes, so that the shell neither splits it nor replaces $names.
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  [2]

A command that is not quoted: the shell has split it, and the name is gone.

  $ mrset run tiny.mrset MRSET /DISPLAY NAME=ALL
  mrset: Unexpected argument: /DISPLAY.
  A command comes after -c, in single quotes, so that the shell neither splits it nor replaces $names.
    mrset run tiny.mrset -c 'MRSET /DISPLAY NAME=ALL'
  [2]
  $ mrset run tiny.mrset 'MRSET /DISPLAY NAME=ALL'
  mrset: The script MRSET /DISPLAY NAME=ALL cannot be read: No such file or directory.
  A command comes after -c, in single quotes, so that the shell neither splits it nor replaces $names.
    mrset run tiny.mrset -c 'MRSET /DISPLAY NAME=ALL'
  [2]
  $ mrset run tiny.mrset "/MCGROUP NAME=\$x VARIABLES=$(seq -s ' q' 500)" 2>&1 | sed -E 's/( q?[0-9]+)+/ LIST/'
  mrset: The script /MCGROUP NAME=$x VARIABLES=1 LIST cannot be read: File name too long.
  A command comes after -c, in single quotes, so that the shell neither splits it nor replaces $names.
    mrset run tiny.mrset -c '/MCGROUP NAME=$x VARIABLES=1 LIST'
  [2]
  $ mrset run tiny.mrset /DISPLAY
  mrset: The script /DISPLAY cannot be read: No such file or directory.
  A command comes after -c, in single quotes, so that the shell neither splits it nor replaces $names.
    mrset run tiny.mrset -c 'MRSET /DISPLAY NAME=ALL'
  [2]
  $ mrset run tiny.mrset /none/DISPLAY
  mrset: The script /none/DISPLAY cannot be read: No such file or directory.
  [2]
  $ mrset run tiny.mrset -c MRSET /MDGROUP NAME=$likes VARIABLES=q1
  mrset: Unexpected argument: NAME=.
  A command comes after -c, in single quotes, so that the shell neither splits it nor replaces $names.
    mrset run tiny.mrset -c 'MRSET /DISPLAY NAME=ALL'
  [2]

A command in double quotes: the shell has replaced the names. The hint is given only where a name is missing in a
command that is an argument.

  $ unset likes pets
  $ mrset run tiny.mrset -c "MRSET /MDGROUP NAME=$likes VARIABLES=q1 q2 VALUE=1" -c "MRSET /MCGROUP VARIABLES=q1 q2 NAME=$likes"
  1> MRSET /MDGROUP NAME= VARIABLES=q1 q2 VALUE=1
  Error: The MRSET name VARIABLES must start with $.
    -c 1, line 1, column 22:
      MRSET /MDGROUP NAME= VARIABLES=q1 q2 VALUE=1
                           ^^^^^^^^^
  hint: no name comes after NAME=: a shell replaces $names in a command that is not in single quotes
  
  2> MRSET /MCGROUP VARIABLES=q1 q2 NAME=
  Error: Unexpected MRSET name value end of command was found.
    -c 2, line 1, column 37:
      MRSET /MCGROUP VARIABLES=q1 q2 NAME=
                                          ^
  hint: no name comes after NAME=: a shell replaces $names in a command that is not in single quotes
  [1]
  $ mrset run tiny.mrset -c "MRSET /MCGROUP NAME=$likes /DISPLAY NAME=ALL" -c "MRS /DIS NAM = [$likes $pets]" --format json
  {"command":1,"line":1,"text":"MRSET /MCGROUP NAME= /DISPLAY NAME=ALL","procedure":"Multiple Response Set","status":"error","items":[{"kind":"message","level":"error","text":"Unexpected MRSET name value / was found.","line":1,"column":22,"length":1}],"source":"-c 1","hints":["no name comes after NAME=: a shell replaces $names in a command that is not in single quotes"]}
  {"command":2,"line":1,"text":"MRS /DIS NAM = [ ]","procedure":"Multiple Response Set","status":"ok","items":[{"kind":"message","level":"warning","text":"No MRSET to display"}],"source":"-c 2","hints":["no name comes after NAME=: a shell replaces $names in a command that is not in single quotes"]}
  [1]
  $ mrset run tiny.mrset -c "MRSET /DELETE NAME=[$likes]" 2>&1 | numberless
  1> MRSET /DELETE NAME=[]
  Fatal: mrset: backend/mrset/mrsetapply.cpp:LINE: void DeleteMRSets(const MRSetSubcommand&, VARIABLESETS&): Assertion `!subcmd.fNames.empty()' failed.
  hint: the list in the brackets is empty
  hint: no name comes after NAME=: a shell replaces $names in a command that is not in single quotes
  The command was aborted; the dataset is as it was before it.
  [3]
  $ mrset run tiny.mrset -c 'MRSET /MCGROUP NAME=likes VARIABLES=q1 q2' -c 'MRSET /DISPLAY NAME=$likes' -c 'MRSET /MCGROUP NAME=$a LABEL= VARIABLES=q1 q2' -c 'MRSET /MCGROUP LABEL="NAME=" VARIABLES=' -c 'MRSET NAME= ' -c 'MRSET /DELETE NAME=['
  1> MRSET /MCGROUP NAME=likes VARIABLES=q1 q2
  Error: The MRSET name likes must start with $.
    -c 1, line 1, column 21:
      MRSET /MCGROUP NAME=likes VARIABLES=q1 q2
                          ^^^^^
  
  2> MRSET /DISPLAY NAME=$likes
  Error: Square bracket expected.
    -c 2, line 1, column 21:
      MRSET /DISPLAY NAME=$likes
                          ^^^^^^
  
  3> MRSET /MCGROUP NAME=$a LABEL= VARIABLES=q1 q2
  Error: A quoted label string was expected. Found VARIABLES ..
    -c 3, line 1, column 31:
      MRSET /MCGROUP NAME=$a LABEL= VARIABLES=q1 q2
                                    ^^^^^^^^^
  
  4> MRSET /MCGROUP LABEL="NAME=" VARIABLES=
  Error: MCGROUP has no name.
    -c 4, line 1, column 8:
      MRSET /MCGROUP LABEL="NAME=" VARIABLES=
             ^^^^^^^
  Error: MCGROUP  has no variable names.
    -c 4, line 1, column 8:
      MRSET /MCGROUP LABEL="NAME=" VARIABLES=
             ^^^^^^^
  
  5> MRSET NAME=
  Error: Invalid MRSET subcommand. Found NAME ..
    -c 5, line 1, column 7:
      MRSET NAME= 
            ^^^^
  
  6> MRSET /DELETE NAME=[
  Error: Square bracket expected.
    -c 6, line 1, column 21:
      MRSET /DELETE NAME=[
                          ^
  [1]
  $ echo "MRSET /DISPLAY NAME=$likes" > vanished.script
  $ mrset run tiny.mrset vanished.script
  1> MRSET /DISPLAY NAME=
  Error: Square bracket expected.
    vanished.script, line 1, column 21:
      MRSET /DISPLAY NAME=
                          ^
  [1]
  $ echo "MRSET /DISPLAY NAME=$likes" | mrset run tiny.mrset -
  1> MRSET /DISPLAY NAME=
  Error: Square bracket expected.
    standard input, line 1, column 21:
      MRSET /DISPLAY NAME=
                          ^
  [1]

A word that is misspelt.

  $ mrset sest tiny.mrset
  mrset: Unknown subcommand: sest.
  Did you mean sets?
  Run "mrset --help" for the subcommands.
  [2]
  $ mrset Sets tiny.mrset
  mrset: Unknown subcommand: Sets.
  Did you mean sets?
  Run "mrset --help" for the subcommands.
  [2]
  $ mrset vars tiny.mrset
  mrset: Unknown subcommand: vars.
  Run "mrset --help" for the subcommands.
  [2]
  $ mrset var tiny.mrset
  mrset: Unknown subcommand: var.
  Did you mean variables?
  Run "mrset --help" for the subcommands.
  [2]
  $ mrset hlep
  mrset: Unknown subcommand: hlep.
  Did you mean help?
  Run "mrset --help" for the subcommands.
  [2]
  $ mrset HELP run
  mrset: Unknown subcommand: HELP.
  Did you mean help?
  Run "mrset --help" for the subcommands.
  [2]
  $ mrset redo tiny.mrset
  mrset: Unknown subcommand: redo.
  Undoing is itself a change; to take back an undo, undo again:
    mrset undo survey.mrset
  [2]
  $ mrset s tiny.mrset
  mrset: Unknown subcommand: s.
  Run "mrset --help" for the subcommands.
  [2]
  $ mrset --hepl
  mrset: Unknown option: --hepl.
  Did you mean --help?
  Run "mrset --help" for the subcommands.
  [2]
  $ mrset --format json sets tiny.mrset
  mrset: Unknown option: --format.
  Options of a subcommand come after it.
  Run "mrset --help" for the subcommands.
  [2]
  $ mrset run tiny.mrset --dry -c MRSET
  mrset: Unknown option: --dry.
  Did you mean --dry-run?
  Run "mrset run --help" for its options.
  [2]
  $ mrset run tiny.mrset --formt=json -c MRSET
  mrset: Unknown option: --formt.
  Did you mean --format?
  Run "mrset run --help" for its options.
  [2]
  $ mrset run tiny.mrset -format json -c MRSET
  mrset: Unknown option: -format.
  Did you mean --format?
  Run "mrset run --help" for its options.
  [2]
  $ mrset run tiny.mrset --frobnicate
  mrset: Unknown option: --frobnicate.
  Run "mrset run --help" for its options.
  [2]
  $ mrset run tiny.mrset -- --formt z
  mrset: Unexpected argument: z.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]

A dataset that is not there, or that is none.

  $ mrset sets survey.mrset
  mrset: survey.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv survey.mrset
  [2]
  $ mrset sets tinny.mrset
  mrset: tinny.mrset does not exist.
  Did you mean tiny.mrset?
  [2]
  $ mrset sets tiny
  mrset: tiny does not exist.
  Did you mean tiny.mrset?
  [2]
  $ mkdir folder; cp tiny.mrset folder/breakfast.mrset; echo > folder/brekafast.mrset
  $ mrset sets folder/brekfast.mrset
  mrset: folder/brekfast.mrset does not exist.
  Did you mean folder/breakfast.mrset?
  [2]
  $ cp tiny.mrset folder/breakfst.mrset
  $ mrset sets folder/brekfast.mrset
  mrset: folder/brekfast.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv folder/brekfast.mrset
  [2]
  $ mrset shell folder/none/a.mrset < /dev/null
  mrset: folder/none/a.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv folder/none/a.mrset
  [2]
  $ mrset run missing.csv -c MRSET
  mrset: missing.csv does not exist.
  To create a dataset from a CSV survey:
    mrset import missing.csv missing.mrset
  [2]
  $ mrset run tiny.csv -c MRSET
  mrset: tiny.csv is not a dataset.
  To create a dataset from a CSV survey:
    mrset import tiny.csv tiny.mrset
  [2]
  $ cp tiny.csv TINY.CSV
  $ mrset variables TINY.CSV
  mrset: TINY.CSV is not a dataset.
  To create a dataset from a CSV survey:
    mrset import TINY.CSV TINY.mrset
  [2]
  $ mrset run commands.txt tiny.mrset
  mrset: commands.txt is not a dataset.
  The dataset comes before the script:
    mrset run tiny.mrset commands.txt
  [2]
  $ mrset run commands.txt vanished.script
  mrset: commands.txt is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  [2]
  $ mrset diff tiny.mrset@0 commands.txt
  mrset: commands.txt is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  [2]
  $ mrset copy tiny.mrset next.mrset
  mrset: next.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv next.mrset
  [2]
  $ sqlite3 other.db 'CREATE TABLE t(a)'
  $ mrset check other.db
  mrset: other.db is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  [2]
  $ mkfifo pipe.mrset tinny.mrset
  $ timeout 10 mrset sets pipe.mrset
  mrset: pipe.mrset is not a dataset.
  [2]
  $ timeout 10 mrset pipe.mrset
  mrset: Unknown subcommand: pipe.mrset.
  To run the commands of a script, or to create a dataset from a CSV survey:
    mrset run survey.mrset pipe.mrset
    mrset import pipe.mrset survey.mrset
  [2]
  $ timeout 10 mrset sets tinnny.mrset
  mrset: tinnny.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv tinnny.mrset
  [2]
  $ mrset sets folder
  mrset: folder is a directory.
  [2]
  $ mrset folder
  mrset: Unknown subcommand: folder.
  Run "mrset --help" for the subcommands.
  [2]

Nothing to run.

  $ mrset run tiny.mrset
  mrset: There is nothing to run: give a SCRIPT, - for commands on standard input, or -c with a command.
    mrset run tiny.mrset commands.script
    mrset run tiny.mrset -c 'MRSET /DISPLAY NAME=ALL'
    mrset shell tiny.mrset
  [2]
  $ mrset run 'my tiny.mrset'
  mrset: There is nothing to run: give a SCRIPT, - for commands on standard input, or -c with a command.
    mrset run 'my tiny.mrset' commands.script
    mrset run 'my tiny.mrset' -c 'MRSET /DISPLAY NAME=ALL'
    mrset shell 'my tiny.mrset'
  [2]

Arguments that are missing, too many or of no use.

  $ mrset run
  mrset: DATASET is missing.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ mrset run x.mrset --formt json -c MRSET
  mrset: Unknown option: --formt.
  Did you mean --format?
  Run "mrset run --help" for its options.
  [2]
  $ mrset run x.mrset --format xml -c MRSET
  mrset: --format: xml is not one of text, json, html, markdown, csv, xlsx.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ for option in --format --width --lock-timeout; do mrset run x.mrset $option '' -c MRSET 2>&1 | sed -n 1p; done; mrset '' 2>&1 | sed -n 1p
  mrset: --format: "" is not one of text, json, html, markdown, csv, xlsx.
  mrset: --width: "" is not a whole number from 20 to 10000.
  mrset: --lock-timeout: "" is not a whole number of seconds.
  mrset: Unknown subcommand: "".
  [2]
  $ mrset run x.mrset --format
  mrset: --format needs a value.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ mrset run x.mrset -c
  mrset: --command needs a value.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ for path in --output= '--output -' '--output= --dry-run' '--output ./-'; do mrset run x.mrset $path -c MRSET 2>&1 | sed -n 1p; done
  mrset: --output: -c looks like an option; a file of that name is ./-c.
  mrset: --output: - is not a file name; without --output the results go to standard output.
  mrset: --output: --dry-run looks like an option; a file of that name is ./--dry-run.
  mrset: x.mrset does not exist.
  [2]
  $ for command in sets variables log check undo script shell; do mrset $command ''; done
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  [2]
  $ echo a > a.csv; breakfast there.mrset
  $ mrset run '' -c MRSET; mrset copy '' there.mrset; mrset copy there.mrset ''; mrset diff '' there.mrset; mrset diff there.mrset ''; mrset import a.csv ''; mrset import --replace a.csv ''
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  mrset: The name of the dataset is empty.
  [2]
  $ rm a.csv there.mrset
  $ mrset run x.mrset -c MRSET --output ''
  mrset: --output: the name of the file is empty; without --output the results go to standard output.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ mrset script x.mrset --output -
  mrset: --output: - is not a file name; without --output the results go to standard output.
  Example:
    mrset script survey.mrset --output sets.script
    mrset run other.mrset sets.script
  Run "mrset script --help" for its options.
  [2]
  $ mrset script x.mrset --output=
  mrset: --output needs a value.
  Example:
    mrset script survey.mrset --output sets.script
    mrset run other.mrset sets.script
  Run "mrset script --help" for its options.
  [2]
  $ mrset run x.mrset -c MRSET --output a --output b
  mrset: --output can be given only once.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ mrset run x.mrset --dry-run=maybe -c MRSET
  mrset: --dry-run takes no value.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ mrset run x.mrset y.script -
  mrset: Unexpected argument: -.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ mrset run x.mrset y.script z.script
  mrset: Unexpected argument: z.script.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ mrset import tiny.csv tiny.schema.json tiny.mrset
  mrset: Unexpected argument: tiny.mrset.
  Example:
    mrset import --schema survey.schema.json survey.csv survey.mrset
  Run "mrset import --help" for its options.
  [2]
  $ mrset import only.csv
  mrset: DATASET is missing.
  Example:
    mrset import --schema survey.schema.json survey.csv survey.mrset
  Run "mrset import --help" for its options.
  [2]
  $ mrset sets
  mrset: DATASET is missing.
  Example:
    mrset sets survey.mrset --format json
  Run "mrset sets --help" for its options.
  [2]

Help and version are results.

  $ mrset --version | sed -E 's/ \([0-9a-f]{12}\)$//'
  mrset 0.1.0
  $ mrset --help
  mrset defines, displays and counts the multiple response sets of a survey.
  Usage: mrset [OPTIONS] SUBCOMMAND
  
  Options:
    --version               Show the version
    -h,--help               Show this help
  
  Subcommands:
    import                  Read a survey from CSV into a dataset
    run                     Run commands on a dataset
    shell                   Type commands on a dataset, with help and completion
    tabulate                Count multiple response sets in tables
    sets                    List a dataset's multiple response sets
    variables               List a dataset's variables
    log                     List the changes of a dataset's sets, and its imports
    undo                    Go back to the sets as they were
    check                   Verify that a dataset is sound
    script                  Write the commands that make a dataset's sets
    diff                    Compare the sets of two datasets
    copy                    Copy sets from one dataset to another
  
  "mrset help run" shows the options of run, "mrset help MDGROUP" the language.
  Example:
    mrset import --schema survey.schema.json survey.csv survey.mrset
  $ mrset --help > /dev/full
  mrset: Standard output cannot be written.
  [2]
  $ mrset import --help
  Read a survey from CSV into a dataset
  Usage: mrset import [OPTIONS] DATA DATASET
  
  Positionals:
    DATA                    Survey: CSV, UTF-8, header row; - for standard input
    DATASET                 Dataset file to make
  
  Options:
    -h,--help               Show this help
    --schema CODEBOOK       Codebook of the survey: Table Schema, JSON
    --replace               Replace the variables and cases of a dataset that
                            exists; its sets are kept
    --lock-timeout SECONDS  How long to wait for a locked dataset; 30 unless given
  
  Example:
    mrset import --schema survey.schema.json survey.csv survey.mrset
  $ mrset run --help
  Run commands on a dataset
  Usage: mrset run [OPTIONS] DATASET [SCRIPT]
  
  Positionals:
    DATASET                 Dataset file
    SCRIPT                  File of commands; - for standard input
  
  Options:
    -h,--help               Show this help
    -c,--command COMMAND    Command to run, after SCRIPT; may lack its period
    --format FORMAT         Output as text, json, html, markdown, csv or xlsx
    --color WHEN            When text is coloured: auto, always or never
    --width N               Columns of text; else the terminal's, or 80
    --output FILE           Write results to this file; its ending sets the format
    --dry-run               Show what would be done; leave the dataset as it is
    --stop-on-error         Run no command after one that fails
    --relaxed               Faster, but a power failure or a crash of the system
                            can damage the dataset beyond repair
    --lock-timeout SECONDS  How long to wait for a locked dataset; 30 unless given
  
  json writes a line for each command (JSON Lines). Exit status: 0 no error,
  1 an error message, 2 wrong usage or an unusable file, 3 an aborted command.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  $ mrset sets --help
  List a dataset's multiple response sets
  Usage: mrset sets [OPTIONS] DATASET
  
  Positionals:
    DATASET                 Dataset file
  
  Options:
    -h,--help               Show this help
    --format FORMAT         Output as text, json, markdown or csv
    --color WHEN            When text is coloured: auto, always or never
    --width N               Columns of text; else the terminal's, or 80
    --lock-timeout SECONDS  How long to wait for a locked dataset; 30 unless given
  
  Example:
    mrset sets survey.mrset --format json
  $ mrset variables --help
  List a dataset's variables
  Usage: mrset variables [OPTIONS] DATASET [PATTERN]
  
  Positionals:
    DATASET                 Dataset file
    PATTERN                 Names to list, such as 'q*', or their beginning
  
  Options:
    -h,--help               Show this help
    --values                Show the values that occur, with counts
    --format FORMAT         Output as text, json, markdown or csv
    --color WHEN            When text is coloured: auto, always or never
    --width N               Columns of text; else the terminal's, or 80
    --lock-timeout SECONDS  How long to wait for a locked dataset; 30 unless given
  
  Example:
    mrset variables survey.mrset 'q1*' --format csv
  $ mrset log --help
  List the changes of a dataset's sets, and its imports
  Usage: mrset log [OPTIONS] DATASET
  
  Positionals:
    DATASET                 Dataset file
  
  Options:
    -h,--help               Show this help
    --format FORMAT         Output as text or json
    --width N               Columns of text; else the terminal's, or 80
    --lock-timeout SECONDS  How long to wait for a locked dataset; 30 unless given
  
  Imports are listed where they happened, without a number;
  undo leaves them as they are.
  Example:
    mrset log survey.mrset
  $ mrset undo --help
  Go back to the sets as they were
  Usage: mrset undo [OPTIONS] DATASET [N]
  
  Positionals:
    DATASET                 Dataset file
    N                       The same as --to N
  
  Options:
    -h,--help               Show this help
    --to N                  Go back to the sets as change N left them, instead of
                            undoing the last change
    --lock-timeout SECONDS  How long to wait for a locked dataset; 30 unless given
  
  Undoing is itself a change: undoing twice restores the sets (a redo).
  Exit status: 0 done, 1 nothing to undo, 2 wrong usage, no such version or an
  unusable file.
  Example:
    mrset undo survey.mrset --to 3
  $ mrset check --help
  Verify that a dataset is sound
  Usage: mrset check [OPTIONS] DATASET
  
  Positionals:
    DATASET                 Dataset file
  
  Options:
    -h,--help               Show this help
    --lock-timeout SECONDS  How long to wait for a locked dataset; 30 unless given
  
  Exit status: 0 sound, 1 something is not as it should be, 2 wrong usage, or not
  readable as a dataset.
  Example:
    mrset check survey.mrset
