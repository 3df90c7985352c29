Where there is not enough memory, or no descriptor is left, that is one sentence, and nothing is lost.

  $ . "$TESTDIR/setup.sh"
  $ { seq -s, -f 'v%g' 3000; seq -s, 3000; } > wide.csv; mrset import wide.csv s.mrset
  s.mrset: 3000 variables, 1 case
  $ for i in $(seq 300); do echo "MRSET /MCGROUP NAME=\$s$i VARIABLES=v1 TO v3000."; done > many.script; mrset run s.mrset many.script --relaxed > /dev/null
  $ scarce() { (ulimit -v 60000; "$@"); }

  $ scarce mrset sets s.mrset
  mrset: There is not enough memory.
  [2]
  $ scarce mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL'
  mrset: There is not enough memory.
  [2]
  $ scarce mrset run s.mrset -c 'MRSET /MCGROUP NAME=$new VARIABLES=v1 v2' --output out.txt
  mrset: There is not enough memory.
  [2]
  $ scarce mrset undo s.mrset
  mrset: There is not enough memory.
  [2]
  $ ls -A; mrset sets s.mrset --format json | grep -o '"name":"\$' | wc -l; mrset check s.mrset
  many.script
  s.mrset
  wide.csv
  300
  s.mrset is sound.
  $ (exec 3>&- 4>&- 5>&- 6>&- 7>&- 8>&- 9>&-; ulimit -n 4; mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL')
  mrset: The process that runs commands cannot be started: Too many open files.
  [2]
  $ (exec 3>&- 4>&- 5>&- 6>&- 7>&- 8>&- 9>&-; ulimit -n 4; mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' --output out.txt); ls out.txt
  mrset: The output file out.txt cannot be written: Too many open files.
  ls: cannot access 'out.txt': No such file or directory
  [2]
