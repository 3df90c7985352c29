A file whose pages are children again and again: a scan of all would never end. Each answer comes all the same.

  $ . "$TESTDIR/setup.sh"
  $ small sound.mrset; mrset run sound.mrset > /dev/null 2>&1 -c 'MRSET /MCGROUP NAME=$b VARIABLES=t1 t2 /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1' -c 'MRSET /DELETE NAME=[$b]' -c 'MRSET /MCGROUP NAME=$b VARIABLES=q1 q2 q3'
  $ printf 'q1,q2\n1,2\n' > other.csv
  $ hostile() { cp sound.mrset s.mrset; "$TESTDIR/share_pages.py" s.mrset "$1"; }
  $ answer() { name=$1; shift; cp s.mrset x.mrset; timeout 60 mrset "$@" > out 2>&1; echo "$name: $?"; grep '^mrset: ' out; true; }
  $ answers() {
  >   hostile "$1"; answer sets sets x.mrset; answer variables variables x.mrset; answer log log x.mrset
  >   answer script script x.mrset; answer diff diff x.mrset sound.mrset; answer copy copy sound.mrset x.mrset
  >   answer undo undo x.mrset; answer display run x.mrset -c 'MRSET /DISPLAY NAME=ALL'
  >   answer define run x.mrset -c 'MRSET /MCGROUP NAME=$c VARIABLES=q1 q2'; answer replace import --replace other.csv x.mrset
  >   answer check check x.mrset; grep -v '^The file is not sound' out
  > }

What is wrong with the pages is told a line each.

  $ hostile meta; mrset check s.mrset | sed -n '1p;2p;11,$p' | sed -E '/^The file/s/[0-9]+([ :.])/N\1/g'
  The file is not sound: On tree page N cell N: Rowid N out of order.
  The file is not sound: On tree page N cell N: 2nd reference to page N.
  ... and 90 more such findings.
  The header cannot be read to the end.
  s.mrset: 101 findings.
  [1]

  $ answers meta
  sets: 0
  variables: 0
  log: 0
  script: 0
  diff: 0
  copy: 0
  undo: 0
  display: 0
  define: 0
  replace: 0
  mrset: The set $b has the variable q3, which no longer exists.
  check: 1
  ... and 90 more such findings.
  The header cannot be read to the end.
  x.mrset: 101 findings.

  $ answers variable
  sets: 0
  variables: 0
  log: 0
  script: 0
  diff: 0
  copy: 0
  undo: 0
  display: 0
  define: 0
  replace: 2
  mrset: x.mrset is damaged.
  check: 1
  ... and 90 more such findings.
  The header cannot be read to the end.
  The dictionary cannot be read to the end.
  x.mrset: 102 findings.

  $ answers sqlite_autoindex_variable_1
  sets: 0
  variables: 0
  log: 0
  script: 0
  diff: 0
  copy: 0
  undo: 0
  display: 0
  define: 0
  replace: 2
  mrset: x.mrset is damaged.
  check: 1
  ... and 90 more such findings.
  x.mrset: 100 findings.

  $ answers value_label
  sets: 0
  variables: 0
  log: 0
  script: 0
  diff: 0
  copy: 0
  undo: 0
  display: 0
  define: 0
  replace: 2
  mrset: x.mrset is damaged.
  check: 1
  ... and 90 more such findings.
  The value labels cannot be read to the end.
  x.mrset: 101 findings.

  $ answers mr_set
  sets: 2
  mrset: x.mrset is damaged.
  variables: 0
  log: 0
  script: 2
  mrset: x.mrset is damaged.
  diff: 2
  mrset: x.mrset is damaged.
  copy: 2
  mrset: x.mrset is damaged.
  undo: 2
  mrset: x.mrset is damaged.
  display: 2
  mrset: x.mrset is damaged.
  define: 2
  mrset: x.mrset is damaged.
  replace: 0
  check: 1
  ... and 90 more such findings.
  The sets cannot be read to the end.
  The history cannot be read to the end.
  x.mrset: 102 findings.

  $ answers sqlite_autoindex_mr_set_1
  sets: 0
  variables: 0
  log: 0
  script: 0
  diff: 0
  copy: 0
  undo: 2
  mrset: x.mrset is damaged.
  display: 0
  define: 0
  replace: 0
  mrset: The set $b has the variable q3, which no longer exists.
  check: 1
  ... and 90 more such findings.
  x.mrset: 100 findings.

  $ answers mr_set_variable
  sets: 2
  mrset: x.mrset is damaged.
  variables: 0
  log: 0
  script: 2
  mrset: x.mrset is damaged.
  diff: 2
  mrset: x.mrset is damaged.
  copy: 2
  mrset: x.mrset is damaged.
  undo: 2
  mrset: x.mrset is damaged.
  display: 2
  mrset: x.mrset is damaged.
  define: 2
  mrset: x.mrset is damaged.
  replace: 0
  check: 1
  ... and 90 more such findings.
  The variables of the sets cannot be read to the end.
  The history cannot be read to the end.
  x.mrset: 102 findings.

  $ answers block
  sets: 0
  variables: 0
  log: 0
  script: 0
  diff: 0
  copy: 0
  undo: 0
  display: 0
  define: 0
  replace: 2
  mrset: x.mrset is damaged.
  check: 1
  ... and 90 more such findings.
  The cases cannot be read to the end.
  x.mrset: 101 findings.

  $ answers history
  sets: 0
  variables: 0
  log: 2
  mrset: x.mrset is damaged.
  script: 0
  diff: 0
  copy: 0
  undo: 0
  display: 0
  define: 0
  replace: 0
  mrset: The set $b has the variable q3, which no longer exists.
  check: 1
  ... and 90 more such findings.
  The history cannot be read to the end.
  x.mrset: 101 findings.

  $ answers history_set
  sets: 0
  variables: 0
  log: 0
  script: 0
  diff: 0
  copy: 0
  undo: 0
  display: 0
  define: 0
  replace: 0
  mrset: The set $b has the variable q3, which no longer exists.
  check: 1
  ... and 90 more such findings.
  The history cannot be read to the end.
  x.mrset: 101 findings.

Two rows that go on in the same pages: the second one holds what is the first one's.

  $ many() { head -c 9000 /dev/zero | tr '\0' "$1"; }
  $ { echo a,b; echo "$(many c),$(many d)"; echo "$(many e),$(many f)"; } > long.csv; mrset import long.csv l.mrset
  l.mrset: 2 variables, 2 cases
  $ PYTHONDONTWRITEBYTECODE=1 "$TESTDIR/share_overflow.py" l.mrset; mrset check l.mrset | sed -E '/^The file/s/[0-9]+([ :.])/N\1/g' | uniq
  The file is not sound: On tree page N cell N: 2nd reference to page N.
  The file is not sound: Page N is never used.
  Block 0 of the variable at position 1 is not sound: the checksum of its cells is wrong.
  l.mrset: 6 findings.
  [1]
  $ mrset variables l.mrset a --values | tail -n 1 | tr -d ' '
  (1)
  $ mrset variables l.mrset b --values
  mrset: l.mrset is damaged.
  [2]
