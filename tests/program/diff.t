What differs between the sets of two datasets.

  $ . "$TESTDIR/setup.sh"
  $ small a.mrset; small b.mrset
  $ mrset diff a.mrset b.mrset
  The multiple response sets are the same.
  $ mrset run a.mrset > /dev/null -c 'MRSET /MDGROUP NAME=$drinks LABEL="Drinks" VARIABLES=q1 TO q3 VALUE=1
  >   /MCGROUP NAME=$colours VARIABLES=t1 t2 /MCGROUP NAME=$old VARIABLES=t1 t2'
  $ mrset diff a.mrset b.mrset
  A: a.mrset
  B: b.mrset
  
  Only in A: $drinks $colours $old
  [1]
  $ mrset run b.mrset > /dev/null -c 'MRSET /MCGROUP NAME=$colours VARIABLES=t1 t2 /MCGROUP NAME=$new VARIABLES=t1 t2
  >   /MDGROUP NAME=$Drinks LABEL="Hot drinks" VARIABLES=q2 q1 n1 VALUE=1.0'
  $ mrset diff a.mrset b.mrset
  A: a.mrset
  B: b.mrset
  
  Only in A: $old
  Only in B: $new
  $drinks
    name
      A: "$drinks"
      B: "$Drinks"
    label
      A: "Drinks"
      B: "Hot drinks"
    counted value
      A: "1"
      B: "1.0"
    variables
      only in A: q3
      only in B: n1
      order in A: q1 q2
      order in B: q2 q1
  The sets that both have are in another order.
      A: $drinks $colours
      B: $colours $Drinks
  [1]
  $ mrset diff --format json a.mrset b.mrset
  {"a":"a.mrset","b":"b.mrset","same":false,"onlyInA":[{"name":"$old","type":"category","label":"","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["t1","t2"]}],"onlyInB":[{"name":"$new","type":"category","label":"","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["t1","t2"]}],"changed":[{"name":"$drinks","fields":[{"field":"name","a":"$drinks","b":"$Drinks"},{"field":"label","a":"Drinks","b":"Hot drinks"},{"field":"countedValue","a":"1","b":"1.0"},{"field":"variables","a":["q1","q2","q3"],"b":["q2","q1","n1"],"onlyInA":["q3"],"onlyInB":["n1"],"reordered":true}]}],"order":{"same":false,"a":["$drinks","$colours"],"b":["$colours","$Drinks"]}}
  [1]
  $ mrset diff b.mrset b.mrset --format json
  {"a":"b.mrset","b":"b.mrset","same":true,"onlyInA":[],"onlyInB":[],"changed":[],"order":{"same":true,"a":["$colours","$new","$Drinks"],"b":["$colours","$new","$Drinks"]}}

A version of a dataset's sets comes after "@": what that change left.

  $ mrset run b.mrset -c 'MRSET /DELETE NAME=[$new]' > /dev/null
  $ mrset diff b.mrset@1 b.mrset
  A: b.mrset@1
  B: b.mrset
  
  Only in A: $new
  [1]
  $ mrset diff b.mrset@0 b.mrset@1 --format json | grep -o '"same":[a-z]*,"onlyInA":[^{]*'
  "same":false,"onlyInA":[],"onlyInB":[
  [1]
  $ mrset diff b.mrset@2 b.mrset
  The multiple response sets are the same.
  $ mrset diff b.mrset@3 b.mrset
  mrset: b.mrset has no version 3; it keeps 0 to 2.
  [2]
  $ mrset diff missing.mrset@1 b.mrset
  mrset: missing.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv missing.mrset
  [2]

A file of that very name comes first.

  $ cp a.mrset b.mrset@1; mrset diff b.mrset@1 a.mrset
  The multiple response sets are the same.
  $ mrset diff b.mrset@01 b.mrset@1 | sed -n 1,2p
  A: b.mrset@01
  B: b.mrset@1
  [1]
  $ rm b.mrset@1; mrset diff b.mrset@one b.mrset; mrset diff @1 b.mrset; mrset diff b.mrset@ b.mrset
  mrset: b.mrset@one does not exist.
  Did you mean b.mrset?
  mrset: @1 does not exist.
  To create it from a CSV survey:
    mrset import survey.csv @1
  mrset: b.mrset@ does not exist.
  Did you mean b.mrset?
  [2]

What cannot be compared.

  $ mrset diff a.mrset missing.mrset
  mrset: missing.mrset does not exist.
  To create it from a CSV survey:
    mrset import survey.csv missing.mrset
  [2]
  $ mrset diff a.mrset
  mrset: B is missing.
  Examples:
    mrset diff wave1.mrset wave2.mrset
    mrset diff survey.mrset@3 survey.mrset
  Run "mrset diff --help" for its options.
  [2]
  $ echo x > x.mrset; mrset diff x.mrset a.mrset
  mrset: x.mrset is not a dataset.
  To create a dataset from a CSV survey:
    mrset import survey.csv survey.mrset
  [2]

Help.

  $ mrset diff --help
  Compare the sets of two datasets
  Usage: mrset diff [OPTIONS] A B
  
  Positionals:
    A                       Dataset file, or DATASET@N: its sets as change N left
                            them; 0 is before the first
    B                       Dataset file to compare with A, likewise
  
  Options:
    -h,--help               Show this help
    --format FORMAT         Output as text or json
    --lock-timeout SECONDS  How long to wait for a locked dataset; 30 unless given
  
  Exit status: 0 the sets are the same, 1 they differ, 2 wrong usage or an
  unusable file.
  Examples:
    mrset diff wave1.mrset wave2.mrset
    mrset diff survey.mrset@3 survey.mrset
