What a command makes of what another process does while it waits.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset

`hold KIND` begins a transaction of another process that `release [SQL]` ends; what is written in it is kept. `told N`
waits until N waits were told.

  $ mkfifo orders typed
  $ hold() { rm -f held; sqlite3 s.mrset < orders > /dev/null 7>&- & holder=$!; exec 8> orders; printf '%s\n' '.timeout 10000' "BEGIN $1; SELECT count(*) FROM meta;" '.shell touch held' >&8; until [ -e held ]; do sleep 0.02; done; }
  $ release() { printf '%s\n' "$1" 'COMMIT;' >&8; exec 8>&-; wait $holder; }
  $ soon() { for try in $(seq 200); do "$@" && return; sleep 0.05; done; echo "Not so: $*"; }
  $ told() { soon eval "[ \$(cat err 2> /dev/null | grep -c waiting) -ge $1 ]"; }

A command that is overtaken by another process is run again. The error of the try that was given up is forgotten: it is
not shown, does not stop the run and does not count. The module of this test reports one where q1 is numeric.

  $ printf 'MRSET /A.\nMRSET /B.\n' > two.script; hold IMMEDIATE
  $ MRSET_MODULE="$(dirname "$MRSET_PROGRAM")/../lib/erring_module.so" mrset run s.mrset two.script --stop-on-error > out 2> err 8>&- & command=$!
  $ told 1; release "UPDATE variable SET width = 1 WHERE name = 'q1'; UPDATE meta SET generation = generation + 1;"
  $ wait $command; cat out err; mrset sets s.mrset --format json | grep -o '"name":"[^"]*"'
  1> MRSET /A
  
  2> MRSET /B
  mrset: waiting for s.mrset, which another process has locked.
  "name":"$made1"
  "name":"$made2"

Each command of a shell that waits says so.

  $ mrset shell s.mrset < typed > out 2> err & shell=$!; exec 7> typed; echo 'MRSET /DISPLAY NAME=ALL.' >&7; soon test -s out
  $ ask() { before=$(wc -c < out); hold EXCLUSIVE; echo "$1" >&7; told $2; release; soon eval '[ $(wc -c < out) -gt $before ]'; }
  $ ask 'MRSET /MCGROUP NAME=$x VARIABLES=t1 t2.' 1; ask 'MRSET /MCGROUP NAME=$y VARIABLES=t1 t2.' 2; ask sets 3; ask log 4
  $ exec 7>&-; wait $shell; cat err
  mrset: waiting for s.mrset, which another process has locked.
  mrset: waiting for s.mrset, which another process has locked.
  mrset: waiting for s.mrset, which another process has locked.
  mrset: waiting for s.mrset, which another process has locked.

An output file whose place is taken while its commands run.

  $ hold IMMEDIATE; mrset run s.mrset -c 'MRSET /MCGROUP NAME=$z VARIABLES=t1 t2' --output results 2> err 8>&- & command=$!
  $ told 1; mkdir results; release; wait $command
  [2]
  $ cat err; ls -A results
  mrset: waiting for s.mrset, which another process has locked.
  mrset: The output file results cannot be written: Is a directory.
  mrset: The dataset was changed by 1 command and is saved; mrset log lists the changes.
