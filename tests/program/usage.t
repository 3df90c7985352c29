Wrong use is told in one sentence with the next step, and exit status 2.

  $ . "$TESTDIR/setup.sh"
  $ mrset
  mrset: A subcommand is missing.
  To begin:
    mrset import survey.csv survey.mrset    makes a dataset of a survey in CSV
    mrset variables survey.mrset            lists its variables
    mrset shell survey.mrset                takes commands
  Run "mrset --help" for all subcommands.
  [2]
  $ mrset frobnicate
  mrset: frobnicate is neither a subcommand nor an option.
  Run "mrset --help" for the subcommands.
  [2]

What is given in place of a subcommand tells what is wanted: a survey, a dataset, another file, a command.

  $ mrset survey.csv
  mrset: survey.csv is neither a subcommand nor an option.
  To make a dataset of a survey in CSV:
    mrset import survey.csv survey.mrset
  [2]
  $ mrset "my survey's.csv"
  mrset: my survey's.csv is neither a subcommand nor an option.
  To make a dataset of a survey in CSV:
    mrset import 'my survey'\''s.csv' 'my survey'\''s.mrset'
  [2]
  $ printf 'q1,q2\n1,0\n' > tiny.csv
  $ mrset import tiny.csv tiny.mrset
  tiny.mrset: 2 variables, 1 case
  $ mrset tiny.mrset
  mrset: tiny.mrset is neither a subcommand nor an option.
  To work with this dataset:
    mrset shell tiny.mrset
    mrset run tiny.mrset -c 'MRSET /DISPLAY NAME=ALL'
  [2]
  $ echo 'MRSET /DISPLAY NAME=ALL.' > commands.txt
  $ mrset commands.txt
  mrset: commands.txt is neither a subcommand nor an option.
  To run the commands of a script, or to make a dataset of a survey in CSV:
    mrset run survey.mrset commands.txt
    mrset import commands.txt commands.mrset
  [2]
  $ mrset MRSET /DISPLAY NAME=ALL
  mrset: MRSET is neither a subcommand nor an option.
  A command is one argument, in single quotes, so that the shell neither splits it nor replaces $names:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  [2]

A command that is not quoted: the shell has split it, and the name is gone.

  $ mrset run tiny.mrset -c MRSET /MDGROUP NAME=$likes VARIABLES=q1
  mrset: NAME= is not expected by mrset run.
  A command is one argument, in single quotes, so that the shell neither splits it nor replaces $names:
    mrset run DATASET -c 'MRSET /DISPLAY NAME=ALL'
  [2]

Arguments that are missing, too many or of no use.

  $ mrset run
  mrset: DATASET is required.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ mrset run x.mrset --formt json -c MRSET
  mrset: --formt is not expected by mrset run.
  Run "mrset run --help" for its options.
  [2]
  $ mrset run x.mrset --format xml -c MRSET
  mrset: --format: xml is none of text, json, html, markdown, csv.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
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
  $ mrset run x.mrset -c MRSET --output a --output b
  mrset: --output can be given once only.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ mrset run x.mrset y.script z.script
  mrset: z.script is not expected by mrset run.
  Run "mrset run --help" for its options.
  [2]
  $ mrset import only.csv
  mrset: DATASET is required.
  Example:
    mrset import --schema survey.schema.json survey.csv survey.mrset
  Run "mrset import --help" for its options.
  [2]
  $ mrset sets
  mrset: DATASET is required.
  Example:
    mrset sets survey.mrset --format json
  Run "mrset sets --help" for its options.
  [2]

Help and version are results.

  $ mrset --version
  mrset 0.1.0
  $ mrset --help
  mrset defines, displays and deletes the multiple response sets of a survey.
  Usage: mrset [OPTIONS] SUBCOMMAND
  
  Options:
    --version                   Display program version information and exit
    -h,--help                   Show this help
  
  Subcommands:
    import                      Read a survey from CSV into a dataset
    run                         Run commands on a dataset
    shell                       Type commands on a dataset, with help and completion
    sets                        List a dataset's multiple response sets
    variables                   List a dataset's variables
    log                         List the changes of a dataset's sets
    undo                        Go back to the sets as they were
    check                       Verify that a dataset is sound
    script                      Write the commands that make a dataset's sets
    diff                        Compare the sets of two datasets
    copy                        Copy sets from one dataset to another
  
  Example:
    mrset import --schema survey.schema.json survey.csv survey.mrset
    mrset run survey.mrset -c 'MRSET /MCGROUP NAME=$pets VARIABLES=pet1 TO pet3 /DISPLAY NAME=ALL'
  
  $ mrset --help > /dev/full
  mrset: Standard output cannot be written.
  [2]
  $ mrset import --help
  Read a survey from CSV into a dataset
  Usage: mrset import [OPTIONS] DATA DATASET
  
  Positionals:
    DATA REQUIRED               Survey: CSV, UTF-8, with a header row
    DATASET REQUIRED            Dataset file to make
  
  Options:
    -h,--help                   Show this help
    --schema CODEBOOK           Codebook of the survey: Table Schema, JSON
    --replace                   Replace the variables and cases of a dataset that exists; its sets are kept
    --lock-timeout SECONDS      How long to wait while another process has the dataset locked; 30 seconds unless given, 0 not at all
  
  Example:
    mrset import --schema survey.schema.json survey.csv survey.mrset
  
  $ mrset run --help
  Run commands on a dataset
  Usage: mrset run [OPTIONS] DATASET [SCRIPT]
  
  Positionals:
    DATASET REQUIRED            Dataset file
    SCRIPT                      File of commands; - for standard input
  
  Options:
    -h,--help                   Show this help
    -c,--command COMMAND ...    A command to run, after those of SCRIPT; its final period may be left out
    --format text|json|html|markdown|csv
                                Form of the output: json and csv are for programs
    --color auto|always|never   Colour of text; auto: on terminals, unless NO_COLOR is set
    --output FILE               Write the results to this file
    --dry-run                   Show what the commands would do and leave the dataset as it is
    --stop-on-error             Run no command after one that fails
    --relaxed                   Do not wait until what a command saved is on the disk: faster. A program that is killed still loses nothing, but a power failure or a crash of the system can damage the dataset beyond repair
    --lock-timeout SECONDS      How long to wait while another process has the dataset locked; 30 seconds unless given, 0 not at all
  
  Exit status: 0 no error, 1 an error message, 2 wrong usage or an unusable file, 3 an aborted command.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  
  $ mrset sets --help
  List a dataset's multiple response sets
  Usage: mrset sets [OPTIONS] DATASET
  
  Positionals:
    DATASET REQUIRED            Dataset file
  
  Options:
    -h,--help                   Show this help
    --format text|json|markdown|csv
                                Form of the output: json and csv are for programs
    --color auto|always|never   Colour of text; auto: on terminals, unless NO_COLOR is set
    --lock-timeout SECONDS      How long to wait while another process has the dataset locked; 30 seconds unless given, 0 not at all
  
  Example:
    mrset sets survey.mrset --format json
  
  $ mrset variables --help
  List a dataset's variables
  Usage: mrset variables [OPTIONS] DATASET
  
  Positionals:
    DATASET REQUIRED            Dataset file
  
  Options:
    -h,--help                   Show this help
    --format text|json|markdown|csv
                                Form of the output: json and csv are for programs
    --color auto|always|never   Colour of text; auto: on terminals, unless NO_COLOR is set
    --lock-timeout SECONDS      How long to wait while another process has the dataset locked; 30 seconds unless given, 0 not at all
  
  Example:
    mrset variables survey.mrset --format csv
  
  $ mrset log --help
  List the changes of a dataset's sets
  Usage: mrset log [OPTIONS] DATASET
  
  Positionals:
    DATASET REQUIRED            Dataset file
  
  Options:
    -h,--help                   Show this help
    --format text|json          Form of the output: json and csv are for programs
    --lock-timeout SECONDS      How long to wait while another process has the dataset locked; 30 seconds unless given, 0 not at all
  
  Example:
    mrset log survey.mrset
  
  $ mrset undo --help
  Go back to the sets as they were
  Usage: mrset undo [OPTIONS] DATASET
  
  Positionals:
    DATASET REQUIRED            Dataset file
  
  Options:
    -h,--help                   Show this help
    --to N                      Go back to version N, the sets as change N left them, instead of undoing the last change
    --lock-timeout SECONDS      How long to wait while another process has the dataset locked; 30 seconds unless given, 0 not at all
  
  Undoing is itself a change: to undo twice brings the sets back.
  Exit status: 0 done, 1 there is nothing to undo, 2 wrong usage, no such version or an unusable file.
  Example:
    mrset undo survey.mrset --to 3
  
  $ mrset check --help
  Verify that a dataset is sound
  Usage: mrset check [OPTIONS] DATASET
  
  Positionals:
    DATASET REQUIRED            Dataset file
  
  Options:
    -h,--help                   Show this help
    --lock-timeout SECONDS      How long to wait while another process has the dataset locked; 30 seconds unless given, 0 not at all
  
  Exit status: 0 sound, 1 something is not as it should be, 2 wrong usage, or not readable as a dataset.
  Example:
    mrset check survey.mrset
  
