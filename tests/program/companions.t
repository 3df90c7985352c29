A dataset is its file and the files that SQLite makes beside it while it writes. What lies there is believed only where
this program left it.

  $ . "$TESTDIR/setup.sh"
  $ define() { mrset run "$1" -c "MRSET /MCGROUP NAME=$2 VARIABLES=t1 t2" > /dev/null; }

`cut_off DATASET` begins to write a dataset and is killed in the middle: a journal stays, which takes the write back.

  $ cut_off() { (sqlite3 "$1" 'PRAGMA cache_size = 1; BEGIN; UPDATE mr_set SET label = '"'half written'"'; UPDATE block SET cells = zeroblob(20000); INSERT INTO history VALUES (99, 0, printf('"'%.*c'"', 90000, 0), 0);' '.shell kill -9 $PPID'; true) > /dev/null 2>&1; test -s "$1-journal"; }
  $ small s.mrset && define s.mrset '$old' && cut_off s.mrset
  $ mrset check s.mrset; ls s.mrset*
  s.mrset is sound.
  s.mrset

The journal of a dataset that was deleted is not played into the next one of that name: an import that finds it changes
nothing.

  $ cut_off s.mrset && cp s.mrset-journal kept && rm s.mrset
  $ mrset import "$EXAMPLES/breakfast.csv" s.mrset
  mrset: s.mrset cannot be made: s.mrset-journal was left of another dataset of that name; move it away or delete it.
  [2]
  $ mrset import --replace "$EXAMPLES/breakfast.csv" s.mrset
  mrset: s.mrset cannot be made: s.mrset-journal was left of another dataset of that name; move it away or delete it.
  [2]
  $ ls -A; cmp s.mrset-journal kept
  kept
  s.mrset-journal
  $ rm s.mrset-journal; breakfast s.mrset; mrset check s.mrset
  s.mrset is sound.
  $ rm s.mrset

Nor is it where it comes while the import reads.

  $ mkfifo pipe; mrset import pipe s.mrset & exec 9> pipe; printf 'a,b\n1,2\n' >&9; until ls .mrset-*.tmp > /dev/null 2>&1; do sleep 0.02; done
  $ cp kept s.mrset-journal; exec 9>&-; wait $!
  mrset: s.mrset cannot be made: s.mrset-journal was left of another dataset of that name; move it away or delete it.
  [2]
  $ ls -A
  kept
  pipe
  s.mrset-journal
  $ rm s.mrset-journal

The same for a write-ahead log, which this program never makes.

  $ small wal.mrset; (sqlite3 wal.mrset 'PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0; UPDATE meta SET case_count = 77;' '.shell kill -9 $PPID'; true) > /dev/null 2>&1; mv wal.mrset-wal s.mrset-wal; rm wal.*
  $ mrset import "$EXAMPLES/breakfast.csv" s.mrset
  mrset: s.mrset cannot be made: s.mrset-wal was left of another dataset of that name; move it away or delete it.
  [2]
  $ mv s.mrset-wal log; touch s.mrset-shm; mrset import "$EXAMPLES/breakfast.csv" s.mrset
  mrset: s.mrset cannot be made: s.mrset-shm was left of another dataset of that name; move it away or delete it.
  [2]
  $ rm s.mrset-shm; small s.mrset; mv log s.mrset-wal; mrset sets s.mrset
  mrset: s.mrset-wal was not written by this program; finish what another program began, or move it away.
  [2]
  $ rm s.mrset-wal; mrset check s.mrset
  s.mrset is sound.
  $ sqlite3 s.mrset 'PRAGMA journal_mode = WAL'; mrset sets s.mrset
  wal
  mrset: s.mrset is in SQLite's WAL mode, which this program does not use.
  [2]
  $ sqlite3 s.mrset 'PRAGMA journal_mode = DELETE'; mrset sets s.mrset
  delete
  The dataset has no multiple response sets.

A journal that names another file would have that file deleted. This program writes no such journal and reads none.

  $ define s.mrset '$a' && cut_off s.mrset && echo precious > victim
  $ python3 - s.mrset-journal "$PWD/victim" <<'PYTHON'
  > import struct, sys
  > name = sys.argv[2].encode()
  > end = struct.pack(">I", 0x40000000 // 4096 + 1) + name + struct.pack(">II", len(name), sum(name)) + bytes.fromhex("d9d505f920a163d7")
  > open(sys.argv[1], "ab").write(end)
  > PYTHON
  $ cp s.mrset-journal named
  $ for list in variables sets log check; do mrset $list s.mrset; done
  mrset: s.mrset-journal refers to another file, so this program did not write it; move it away.
  mrset: s.mrset-journal refers to another file, so this program did not write it; move it away.
  mrset: s.mrset-journal refers to another file, so this program did not write it; move it away.
  mrset: s.mrset-journal refers to another file, so this program did not write it; move it away.
  [2]
  $ define s.mrset '$b'
  mrset: s.mrset-journal refers to another file, so this program did not write it; move it away.
  [2]
  $ cat victim; cmp s.mrset-journal named
  precious

Names that belong to a dataset, or to temporary files, are nobody else's.

  $ rm -f s.mrset*; small s.mrset
  $ for ending in journal wal shm; do mrset import "$EXAMPLES/breakfast.csv" s.mrset-$ending; mrset script s.mrset --output s.mrset-$ending; done
  mrset: s.mrset-journal is a name that belongs to the dataset s.mrset; give another one.
  mrset: s.mrset-journal is a name that belongs to the dataset s.mrset; give another one.
  mrset: s.mrset-wal is a name that belongs to the dataset s.mrset; give another one.
  mrset: s.mrset-wal is a name that belongs to the dataset s.mrset; give another one.
  mrset: s.mrset-shm is a name that belongs to the dataset s.mrset; give another one.
  mrset: s.mrset-shm is a name that belongs to the dataset s.mrset; give another one.
  [2]
  $ mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' --output s.mrset-journal
  mrset: s.mrset-journal is a name that belongs to the dataset s.mrset; give another one.
  [2]
  $ mrset import "$EXAMPLES/breakfast.csv" .mrset-0123abcd.tmp
  mrset: .mrset-0123abcd.tmp is a name of temporary files, which are removed; give another one.
  [2]
  $ mrset script s.mrset --output ./.mrset-0123abcd.tmp-journal
  mrset: ./.mrset-0123abcd.tmp-journal is a name of temporary files, which are removed; give another one.
  [2]
  $ ls -A s.mrset*
  s.mrset

What is no file at all keeps nobody waiting.

  $ rm s.mrset*; small s.mrset
  $ mkfifo s.mrset-journal; timeout 10 mrset sets s.mrset
  mrset: s.mrset-journal is not a regular file, so this program did not write it; move it away.
  [2]
  $ rm s.mrset-journal; mkdir s.mrset-journal; mrset sets s.mrset
  mrset: s.mrset-journal is not a regular file, so this program did not write it; move it away.
  [2]
  $ rmdir s.mrset-journal; ln -s nowhere s.mrset-journal; for list in sets variables log check; do mrset $list s.mrset; done
  mrset: s.mrset-journal is not a regular file, so this program did not write it; move it away.
  mrset: s.mrset-journal is not a regular file, so this program did not write it; move it away.
  mrset: s.mrset-journal is not a regular file, so this program did not write it; move it away.
  mrset: s.mrset-journal is not a regular file, so this program did not write it; move it away.
  [2]
  $ touch nowhere; mrset sets s.mrset; rm nowhere s.mrset-journal
  mrset: s.mrset-journal is not a regular file, so this program did not write it; move it away.
  $ ln -s nowhere s.mrset-wal; mrset sets s.mrset; rm s.mrset-wal
  mrset: s.mrset-wal was not written by this program; finish what another program began, or move it away.
  $ mkfifo s.mrset-journal; timeout 10 mrset run s.mrset -c 'MRSET /MCGROUP NAME=$a VARIABLES=t1 t2'
  mrset: s.mrset-journal is not a regular file, so this program did not write it; move it away.
  [2]
  $ rm s.mrset-journal; mkfifo s.mrset-wal; timeout 10 mrset sets s.mrset
  mrset: s.mrset-wal was not written by this program; finish what another program began, or move it away.
  [2]
  $ rm s.mrset-wal

A name needs room for that of the journal.

  $ name() { printf "%0$(($1 - 6))d.mrset" 0; }
  $ mrset import "$EXAMPLES/breakfast.csv" "$(name 248)" 2>&1 | sed "s/$(name 248)/NAME/"
  mrset: NAME cannot be the name of a dataset: it has 248 bytes, and 247 are the most here.
  [2]
  $ mrset import "$EXAMPLES/breakfast.csv" "$(name 247)" 2> /dev/null && mrset run "$(name 247)" -c 'MRSET /MDGROUP NAME=$d VARIABLES=drink1 TO drink5 VALUE=1'
  1> MRSET /MDGROUP NAME=$d VARIABLES=drink1 TO drink5 VALUE=1
  $ rm 0*

A path may be as long as the system lets it be; in front of it, as part of it, or through a link.

  $ part=$(printf '%0200d' 0); deep=$part/$part/$part; mkdir -p $deep; top=$PWD
  $ small $deep/s.mrset; define $deep/s.mrset '$far'; mrset sets $deep/s.mrset --format json | grep -o '"name":"[^"]*"'
  "name":"$far"
  $ (cd $deep && define s.mrset '$near' && mrset undo s.mrset && mrset check s.mrset && printf 'q1\n1\n' | mrset import --replace - s.mrset)
  Undone: change 2, which defined $near. The sets are those of version 1 again, as change 3.
  s.mrset is sound.
  s.mrset: 1 variable, 1 case
  mrset: The set $far has the variable t1, which no longer exists.
  mrset: The set $far has the variable t2, which no longer exists.
  $ ln -s $deep/s.mrset link.mrset; mrset run link.mrset -c 'MRSET /MCGROUP NAME=$through VARIABLES=q1 q2'
  1> MRSET /MCGROUP NAME=$through VARIABLES=q1 q2
  Error: The variable q2 is not in the dataset.
    -c 1, line 1, column 43:
      MRSET /MCGROUP NAME=$through VARIABLES=q1 q2
                                                ^^
  [1]
  $ ls -A $deep
  s.mrset
  $ too=$(printf '%04095d' 0 | sed 's/0\{200\}/&\//g'); mrset sets $too/s.mrset 2>&1 | sed "s,0[0-9/]*/s,TOO/s,"
  mrset: TOO/s.mrset cannot be read: File name too long.
  [2]
