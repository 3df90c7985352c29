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

Lists in JSON end in a sentence or whole, wherever the memory ends.

  $ for kb in $(seq 60000 10000 160000); do (ulimit -v $kb; mrset sets s.mrset --format json > sets.json 2> err) || cat err; done | sort -u
  mrset: There is not enough memory.
  $ mrset sets s.mrset --format json | cmp - sets.json

A table is written row by row, whatever its size.

  $ python3 -c 'print("m1,m2,by"); [print(i % 200, i * 7 % 200, i % 200, sep=",") for i in range(400)]' > cells.csv; mrset import cells.csv c.mrset
  c.mrset: 3 variables, 400 cases
  $ mrset run c.mrset -c 'MRSET /MCGROUP NAME=$m VARIABLES=m1 m2' > /dev/null
  $ for format in csv json; do
  >   mrset tabulate c.mrset '$m' --by by --format $format > all 2> /dev/null
  >   (ulimit -v 75000; mrset tabulate c.mrset '$m' --by by --format $format 2> /dev/null) | cmp - all && echo "$format: $(wc -c < all)"
  > done
  csv: 2733001
  json: 2623495
