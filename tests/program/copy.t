Sets go from one dataset to another.

  $ . "$TESTDIR/setup.sh"
  $ small a.mrset; small b.mrset
  $ mrset copy a.mrset b.mrset
  a.mrset has no multiple response sets.
  $ mrset run a.mrset > /dev/null -c 'MRSET /MDGROUP NAME=$drinks LABEL="Drinks" VARIABLES=q1 TO q3 VALUE=1
  >   /MCGROUP NAME=$colours VARIABLES=t1 t2 /MCGROUP NAME=$both VARIABLES=q1 q2'
  $ mrset run b.mrset > /dev/null -c 'MRSET /MCGROUP NAME=$Colours VARIABLES=t2 t1 /MCGROUP NAME=$both VARIABLES=q1 q2'
  $ mrset copy --dry-run a.mrset b.mrset
  $drinks: added
  $colours: replaced
  $both: the same already
  A dry run: b.mrset is as it was.
  $ mrset sets b.mrset --format json | grep -o '"name":"[^"]*"'
  "name":"$Colours"
  "name":"$both"
  $ mrset copy a.mrset b.mrset '$COLOURS' '$drinks'
  $drinks: added
  $colours: replaced
  $ mrset sets b.mrset
  Multiple response sets
  
  Name      Type       Label   Counted value  Variables
  --------  ---------  ------  -------------  ---------
  $colours  category                          t1
                                              t2
  
  $both     category                          q1
                                              q2
  
  $drinks   dichotomy  Drinks  1              q1
                                              q2
                                              q3

The copy is a change of the target's sets and can be undone. A set comes back from a version of its own dataset.

  $ mrset log b.mrset | grep -o 'copy a.mrset.*'
  copy a.mrset $drinks $colours
  $ mrset run b.mrset -c 'MRSET /DELETE NAME=[$drinks]' > /dev/null
  $ mrset copy b.mrset@2 b.mrset '$drinks'
  $drinks: added
  $ mrset diff b.mrset@2 b.mrset
  The multiple response sets are the same.
  $ mrset undo b.mrset > /dev/null; mrset diff b.mrset@2 b.mrset
  A: b.mrset@2
  B: b.mrset
  
  Only in A: $drinks
  [1]
  $ mrset copy b.mrset@0 b.mrset
  b.mrset@0 has no multiple response sets.

What the target lacks is told; nothing is copied unless the incomplete sets are to be left out.

  $ printf 'Q1,q2,n1,t1,t2\nx,0,7,red,green\n' > c.csv
  $ mrset import c.csv c.mrset
  c.mrset: 5 variables, 1 case
  $ mrset run a.mrset > /dev/null -c 'MRSET /MDGROUP NAME=$blue VARIABLES=t1 t2 VALUE="blue"'
  $ mrset copy a.mrset c.mrset
  mrset: The set $drinks cannot be copied: Q1 is a string in c.mrset, unlike in a.mrset; c.mrset lacks q3.
  mrset: The set $both cannot be copied: Q1 is a string in c.mrset, unlike in a.mrset.
  mrset: The set $blue cannot be copied: t1 has width 3 in c.mrset, too narrow for the counted value.
  mrset: Nothing is copied; --skip-incomplete copies the other sets.
  [1]
  $ mrset sets c.mrset
  The dataset has no multiple response sets.
  $ mrset copy --skip-incomplete a.mrset c.mrset
  $drinks: left out
  $colours: added
    t1 has width 3 in c.mrset and 8 in a.mrset
  $both: left out
  $blue: left out
  mrset: The set $drinks cannot be copied: Q1 is a string in c.mrset, unlike in a.mrset; c.mrset lacks q3.
  mrset: The set $both cannot be copied: Q1 is a string in c.mrset, unlike in a.mrset.
  mrset: The set $blue cannot be copied: t1 has width 3 in c.mrset, too narrow for the counted value.
  [1]
  $ mrset log c.mrset | grep -o 'copy a.mrset.*'
  copy a.mrset $colours
  $ mrset sets c.mrset
  Multiple response sets
  
  Name      Type      Label  Counted value  Variables
  --------  --------  -----  -------------  ---------
  $colours  category                        t1
                                            t2
  $ mrset copy a.mrset c.mrset '$colours'
  $colours: the same already
    t1 has width 3 in c.mrset and 8 in a.mrset

What cannot be copied at all.

  $ mrset copy a.mrset b.mrset '$none'
  mrset: The dataset a.mrset has no set $none.
  [2]
  $ mrset copy a.mrset ./a.mrset
  mrset: a.mrset and ./a.mrset are the same dataset.
  [2]
  $ mrset copy a.mrset missing.mrset
  mrset: missing.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv missing.mrset
  [2]
  $ mrset copy missing.mrset a.mrset
  mrset: missing.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv missing.mrset
  [2]

Help.

  $ mrset copy --help
  Copy sets from one dataset to another
  Usage: mrset copy [OPTIONS] SOURCE TARGET [SET...]
  
  Positionals:
    SOURCE                  Dataset file from which sets are taken, or DATASET@N:
                            its sets as change N left them
    TARGET                  Dataset file into which they are copied
    SET                     Names of the sets to copy; without any, all
  
  Options:
    -h,--help               Show this help
    --skip-incomplete       Leave out the sets whose variables the target lacks
                            and copy the others
    --dry-run               Show what would be copied and leave the target as it
                            is
    --lock-timeout SECONDS  How long to wait for a locked dataset; 30 unless given
  
  Exit status: 0 all sets are copied, 1 a set cannot be copied, 2 wrong usage or
  an unusable file.
  Examples:
    mrset copy wave1.mrset wave2.mrset '$drinks' '$toppings'
    mrset copy survey.mrset@3 survey.mrset '$drinks'

A full standard output hides no change that was made.

  $ small from.mrset; mrset run from.mrset -c 'MRSET /MCGROUP NAME=$full VARIABLES=t1 t2' > /dev/null; small to.mrset
  $ mrset copy from.mrset to.mrset --dry-run > /dev/full
  mrset: Standard output cannot be written.
  [2]
  $ mrset sets to.mrset
  The dataset has no multiple response sets.
  $ mrset copy from.mrset to.mrset > /dev/full
  mrset: Standard output cannot be written, but the change is saved: the sets are copied into to.mrset.
  [2]
  $ mrset diff from.mrset to.mrset
  The multiple response sets are the same.
  $ mrset copy from.mrset to.mrset > /dev/full
  mrset: Standard output cannot be written.
  [2]
