A program that is ended leaves no temporary file.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset; mkfifo pipe
  $ files() { ls -A | grep -v '^pipe$'; }
  $ begin_import() { env --default-signal mrset import pipe new.mrset & exec 9> pipe; printf 'q1\n1\n' >&9; until ls .mrset-*.tmp > /dev/null 2>&1; do sleep 0.02; done; }

  $ for signal in TERM INT HUP; do begin_import; kill -s $signal $!; wait $! 2> /dev/null; echo $?; exec 9>&-; files; done
  143
  s.mrset
  130
  s.mrset
  129
  s.mrset

Every signal that ends a program is one, whatever it is called.

  $ for signal in QUIT USR1 USR2 ALRM VTALRM PROF XCPU IO PWR STKFLT ABRT PIPE RTMIN RTMAX; do begin_import; kill -s $signal $!; wait $! 2> /dev/null; status=$?; exec 9>&-; echo "$signal $((status - $(kill -l $signal))) $(files | tr '\n' ' ')"; done
  QUIT 128 s.mrset 
  USR1 128 s.mrset 
  USR2 128 s.mrset 
  ALRM 128 s.mrset 
  VTALRM 128 s.mrset 
  PROF 128 s.mrset 
  XCPU 128 s.mrset 
  IO 128 s.mrset 
  PWR 128 s.mrset 
  STKFLT 128 s.mrset 
  ABRT 128 s.mrset 
  PIPE 128 s.mrset 
  RTMIN 128 s.mrset 
  RTMAX 128 s.mrset 

The same for results that are being written.

  $ for i in $(seq 1 5000); do echo 'MRSET /DISPLAY NAME=ALL.'; done > long.script
  $ mrset run s.mrset long.script --output out & until ls .mrset-*.tmp > /dev/null 2>&1; do sleep 0.02; done; kill $!; wait $! 2> /dev/null; echo $?; files
  143
  long.script
  s.mrset

One that is killed cannot tidy up; the next one in that folder does. What is in use stays.

  $ begin_import; kill -9 $!; wait $! 2> /dev/null; exec 9>&-; files | sed 's/-[0-9a-f]*/-NUMBER/'
  .mrset-NUMBER.tmp
  long.script
  s.mrset
  $ begin_import; files | grep -c tmp
  1
  $ mrset run s.mrset --output out -c 'MRSET /DISPLAY NAME=ALL'; files | grep -c tmp
  1
  $ exec 9>&-; wait; files
  new.mrset: 1 variable, 1 case
  long.script
  new.mrset
  out
  s.mrset

The journal of such a file goes with it, and alone where the file is gone already.

  $ rm new.mrset; begin_import; touch "$(ls .mrset-*.tmp)-journal"; kill -9 $!; wait $! 2> /dev/null; exec 9>&-; touch .mrset-0123abcd.tmp-journal; files | grep -c tmp
  3
  $ mrset run s.mrset --output out -c 'MRSET /DISPLAY NAME=ALL'; files | grep -c tmp
  0
  [1]
  $ begin_import; touch "$(ls .mrset-*.tmp)-journal"; mrset run s.mrset --output out -c 'MRSET /DISPLAY NAME=ALL'; files | grep -c tmp; exec 9>&-; wait
  2
  new.mrset: 1 variable, 1 case
  $ rm new.mrset; mrset run s.mrset --output out -c 'MRSET /DISPLAY NAME=ALL'; files | grep -c tmp
  0
  [1]

Files of other names are nobody's leftovers.

  $ touch .mrset-1.tmp .mrset-0000000g.tmp .mrset-00000000.tmpx; ln -s s.mrset .mrset-00000001.tmp; mkdir .mrset-00000002.tmp
  $ printf 'q1\n1\n' > one.csv && mrset import one.csv two.mrset && files
  two.mrset: 1 variable, 1 case
  .mrset-00000000.tmpx
  .mrset-00000001.tmp
  .mrset-00000002.tmp
  .mrset-0000000g.tmp
  .mrset-1.tmp
  long.script
  one.csv
  out
  s.mrset
  two.mrset

A limit on the size of files is an error like a full disk.

  $ (ulimit -f 8; for i in $(seq 1 400); do echo "MRSET /MCGROUP NAME=\$x$i VARIABLES=t1 t2."; done | mrset run s.mrset - > /dev/null)
  mrset: s.mrset cannot be read or written: File too large.
  [2]
  $ mrset check s.mrset
  s.mrset is sound.
