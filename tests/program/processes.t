Several processes on one dataset, and processes that end in the middle.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset
  $ define() { for i in $(seq 1 "$2"); do echo "MRSET /MCGROUP NAME=\$$1_$i VARIABLES=t1 t2 /DISPLAY NAME=[\$$1_$i]."; done; }

Four scripts at once: every set is there at the end.

  $ for part in a b c d; do define "$part" 25 > "$part.script"; mrset run s.mrset "$part.script" > "$part.out" 2> "$part.err" & done; wait
  $ cat ?.err | grep -v '^mrset: waiting for s.mrset, which another process has locked.$'
  [1]
  $ mrset sets s.mrset --format json | grep -o '"name":"\$' | wc -l
  100
  $ cat ?.out | grep -c '^Name'
  100

A reader that goes away ends the run: nothing goes on behind its back, and nothing stays locked.

  $ define long 400 > long.script
  $ mrset run s.mrset long.script 2> err | head -1
  1> MRSET /MCGROUP NAME=$long_1 VARIABLES=t1 t2 /DISPLAY NAME=[$long_1]
  [141]
  $ sed -E 's/[0-9]+ command/N command/' err
  mrset: Standard output cannot be written.
  mrset: The dataset was changed by N commands and is saved; mrset log lists the changes.
  $ sleep 1; before=$(mrset sets s.mrset | wc -l); sleep 1; test "$(mrset sets s.mrset | wc -l)" = "$before"
  $ timeout 10 mrset run s.mrset -c 'MRSET /DELETE NAME=ALL'
  1> MRSET /DELETE NAME=ALL

A reader that is slow does not keep others from writing.

  $ { mrset run s.mrset long.script 2> /dev/null || true; } | { read -r line; until [ -e go ]; do sleep 0.1; done; cat > /dev/null; } &
  $ sleep 1; timeout 25 mrset run s.mrset -c 'MRSET /MCGROUP NAME=$quick VARIABLES=t1 t2' 2> quick.err
  1> MRSET /MCGROUP NAME=$quick VARIABLES=t1 t2
  $ touch go; wait

A run that is killed takes its process with it.

  $ mrset run s.mrset -c 'MRSET /DELETE NAME=ALL' > /dev/null
  $ mkfifo pipe; exec 9<> pipe
  $ mrset run s.mrset long.script > pipe &
  $ sleep 1; kill -9 $!; wait $! 2> /dev/null
  [137]
  $ sleep 0.5; before=$(mrset sets s.mrset | wc -l); sleep 1; test "$(mrset sets s.mrset | wc -l)" = "$before"
  $ timeout 10 mrset run s.mrset -c 'MRSET /DELETE NAME=ALL'
  1> MRSET /DELETE NAME=ALL
  $ exec 9>&-

Whoever starts the program may ignore that its own children end: how a command's process ended is told all the same.

  $ ignoring() { python3 -c 'import os, signal, sys; signal.signal(signal.SIGCHLD, signal.SIG_IGN); os.execvp(sys.argv[1], sys.argv[1:])' "$@"; }
  $ MRSET_MODULE="$(dirname "$MRSET_PROGRAM")/../lib/ending_module.so" ignoring mrset run s.mrset -c 'MRSET'
  1> MRSET
  Fatal: The command's process was ended by signal 9 (Killed).
  The command was aborted; the dataset is as it was before it.
  [3]

Standard descriptors that are closed take nothing in.

  $ mrset run s.mrset --output o.json --format json -c 'MRSET /MCGROUP NAME=$c VARIABLES=q1 q2' -c 'MRSET /DELETE NAME=[]' -c 'MRSET /DELETE NAME=[$c]' <&- >&- 2>&-
  [3]
  $ grep -o '"status":"[a-z]*"' o.json
  "status":"ok"
  "status":"aborted"
  "status":"ok"
  $ mrset sets s.mrset >&-
  mrset: Standard output cannot be written.
  [2]
