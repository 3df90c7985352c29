A disk that is full: one sentence, exit status 2, and nothing is lost. It takes the right to mount one.

  $ . "$TESTDIR/setup.sh"
  $ mkdir disk && mount -t tmpfs -o size=200k none disk 2> /dev/null || exit 80
  $ trap 'umount disk' EXIT
  $ seq 1 20000 | awk 'BEGIN { print "a,b" } { print $1 ",text" $1 }' > big.csv
  $ label=$(printf '%0200d' 0); for i in $(seq 1 900); do echo "MRSET /MCGROUP NAME=\$s$i LABEL='$label' VARIABLES=t1 t2."; done > many.script
  $ small disk/s.mrset && cp disk/s.mrset before.mrset

  $ mrset import big.csv disk/x.mrset
  mrset: disk/x.mrset cannot be written: the disk is full.
  [2]
  $ mrset import --replace big.csv disk/s.mrset
  mrset: disk/s.mrset cannot be written: the disk is full.
  [2]
  $ cat big.csv | mrset import /dev/stdin disk/x.mrset
  mrset: /dev/stdin cannot be copied to a temporary file: No space left on device.
  [2]
  $ mrset run disk/s.mrset many.script --dry-run --output disk/out.txt
  mrset: The output file disk/out.txt cannot be written: No space left on device.
  [2]
  $ ls -A disk; cmp disk/s.mrset before.mrset
  s.mrset

A script answers as long as there is room; all that it answered is there, and smaller changes go on.

  $ mrset run disk/s.mrset many.script > out.txt
  mrset: disk/s.mrset cannot be written: the disk is full.
  [2]
  $ test "$(grep -c '^[0-9]*> ' out.txt)" = "$(mrset sets disk/s.mrset --format json | grep -o '"name":"\$' | wc -l)"
  $ mrset check disk/s.mrset; ls -A disk
  disk/s.mrset is sound.
  s.mrset
