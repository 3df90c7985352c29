Processes wait for each other, say so, and wait no longer than they are told.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset

`hold KIND` begins a transaction of another process that `release` ends; `hold KIND SECONDS` one that ends by itself.

  $ mkfifo orders
  $ hold() { rm -f held; sqlite3 s.mrset < orders > /dev/null & exec 8> orders; printf '%s\n' "BEGIN $1; SELECT count(*) FROM meta;" '.shell touch held' "${2:+.shell sleep $2}" >&8; until [ -e held ]; do sleep 0.02; done; if [ -n "$2" ]; then exec 8>&-; fi; }
  $ release() { exec 8>&-; wait; }
  $ define() { mrset run s.mrset -c "MRSET /MCGROUP NAME=$1 VARIABLES=t1 t2" "${@:2}"; }

A lock that is held long is told of once; one that is held for a moment is not.

  $ hold IMMEDIATE 3; define '$a'; wait
  mrset: waiting for s.mrset, which another process has locked.
  1> MRSET /MCGROUP NAME=$a VARIABLES=t1 t2
  $ hold IMMEDIATE 0.3; define '$b'; wait
  1> MRSET /MCGROUP NAME=$b VARIABLES=t1 t2

A command that waits twice, for one who is about to write and then for one who reads, says so once.

  $ mkfifo more; hold IMMEDIATE 2
  $ { sqlite3 s.mrset < more > /dev/null & } 9>&-; exec 9> more; printf '%s\n' 'BEGIN; SELECT count(*) FROM meta;' >&9
  $ (sleep 4; echo 'END;' >&9) & define '$twice' 2> err; exec 9>&-; wait; cat err
  1> MRSET /MCGROUP NAME=$twice VARIABLES=t1 t2
  mrset: waiting for s.mrset, which another process has locked.
  $ mrset run s.mrset -c 'MRSET /DELETE NAME=[$twice]'
  1> MRSET /DELETE NAME=[$twice]

Where it does not become free in time, that is one sentence.

  $ hold IMMEDIATE; define '$c' --lock-timeout 2; define '$c' --lock-timeout 0
  mrset: waiting for s.mrset, which another process has locked.
  mrset: s.mrset is locked by another process and did not become free within 2 seconds (--lock-timeout).
  mrset: s.mrset is locked by another process.
  [2]
  $ mrset undo s.mrset --lock-timeout 0
  mrset: s.mrset is locked by another process.
  [2]
  $ printf 'q1\n1\n' > other.csv; mrset import --replace other.csv s.mrset --lock-timeout 0
  mrset: s.mrset is locked by another process.
  [2]

Displays do not wait for one who is about to write.

  $ mrset sets s.mrset --lock-timeout 0 | grep -c '^[$]'
  2
  $ mrset variables s.mrset --lock-timeout 0 | grep -c '^[qnt][0-9]'
  6
  $ mrset log s.mrset --lock-timeout 0 | grep -c defined
  3
  $ mrset check s.mrset --lock-timeout 0
  s.mrset is sound.
  $ mrset run s.mrset -c 'MRSET /DISPLAY NAME=[$a]' --lock-timeout 0 | sed -n 5p
  Name  Label  Coded As    Counted Value  Data Type  Elementary Variables
  $ release

Nor for another display, however slow.

  $ hold DEFERRED; mrset sets s.mrset --lock-timeout 0 | grep -c '^[$]'; mrset check s.mrset --lock-timeout 0
  2
  s.mrset is sound.
  $ define '$c' --lock-timeout 1
  mrset: s.mrset is locked by another process and did not become free within 1 second (--lock-timeout).
  [2]
  $ release

They wait while it is written.

  $ hold EXCLUSIVE
  $ mrset sets s.mrset --lock-timeout 0
  mrset: s.mrset is locked by another process.
  [2]
  $ mrset variables s.mrset --lock-timeout 0
  mrset: s.mrset is locked by another process.
  [2]
  $ mrset log s.mrset --lock-timeout 0
  mrset: s.mrset is locked by another process.
  [2]
  $ mrset check s.mrset --lock-timeout 0
  mrset: s.mrset is locked by another process.
  [2]
  $ define '$c' --lock-timeout 0
  mrset: s.mrset is locked by another process.
  [2]
  $ mrset check s.mrset --lock-timeout 2
  mrset: waiting for s.mrset, which another process has locked.
  mrset: s.mrset is locked by another process and did not become free within 2 seconds (--lock-timeout).
  [2]
  $ release

Nobody waits for a reader of the output who pauses: all is read before the first byte is written, which has come out of
the pipe here, while more than the pipe holds is still to come.

  $ name=a_variable_whose_name_is_as_long_as_the_name_of_one_may_be
  $ { seq -f "$name%g" 1500 | paste -sd,; seq 1500 | paste -sd,; } > wide.csv; mrset import wide.csv w.mrset
  w.mrset: 1500 variables, 1 case
  $ mrset run w.mrset -c "MRSET /MCGROUP NAME=\$wide VARIABLES=${name}1 TO ${name}1500" > /dev/null
  $ mkfifo paused; : > input; count=0
  $ while_paused() {
  >   "$@" > paused < input & exec 7< paused; head -c 1 <&7 > /dev/null; count=$((count + 1))
  >   mrset run w.mrset -c 'MRSET /MCGROUP NAME=$s'$count" VARIABLES=${name}1 ${name}2" --lock-timeout ${patience:-0} | cut -d ' ' -f 1-4
  >   test "$(wc -c <&7)" -gt 65536 || echo 'The pipe held all of it.'; exec 7<&-; wait
  > }
  $ for list in sets variables; do for format in text json markdown csv; do while_paused mrset $list w.mrset --format $format; done; done
  1> MRSET /MCGROUP NAME=$s1
  1> MRSET /MCGROUP NAME=$s2
  1> MRSET /MCGROUP NAME=$s3
  1> MRSET /MCGROUP NAME=$s4
  1> MRSET /MCGROUP NAME=$s5
  1> MRSET /MCGROUP NAME=$s6
  1> MRSET /MCGROUP NAME=$s7
  1> MRSET /MCGROUP NAME=$s8
  $ while_paused mrset script w.mrset
  1> MRSET /MCGROUP NAME=$s9
  $ while_paused mrset run w.mrset -c 'MRSET /DISPLAY NAME=ALL'
  1> MRSET /MCGROUP NAME=$s10
  $ for command in sets variables 'MRSET /DISPLAY NAME=ALL.'; do echo "$command" > input; while_paused mrset shell w.mrset; done
  1> MRSET /MCGROUP NAME=$s11
  1> MRSET /MCGROUP NAME=$s12
  1> MRSET /MCGROUP NAME=$s13

Nor for one of the log, which reads one change after the other, or of a dry run, which keeps no transaction from one
command to the next. These are still reading when their first byte comes, but not for long.

  $ label=$(printf '%0200d' 0); for i in $(seq 800); do echo "MRSET /MCGROUP NAME=\$s1 LABEL='$label$i' VARIABLES=${name}1 ${name}2."; done > long.script
  $ mrset run w.mrset long.script --relaxed > /dev/null
  $ patience=20; for format in text json; do while_paused mrset log w.mrset --format $format; done; echo log > input; while_paused mrset shell w.mrset
  1> MRSET /MCGROUP NAME=$s14
  1> MRSET /MCGROUP NAME=$s15
  1> MRSET /MCGROUP NAME=$s16
  $ for i in 1 2 3; do echo "MRSET /MCGROUP NAME=\$dry VARIABLES=${name}1 ${name}2 LABEL='$i' /DISPLAY NAME=ALL."; done > dry.script
  $ mrset run w.mrset dry.script --dry-run > paused & exec 7< paused; head -c 1 <&7 > /dev/null
  $ mrset run w.mrset -c "MRSET /MCGROUP NAME=\$s17 VARIABLES=${name}1 ${name}2" --lock-timeout 20 | cut -d ' ' -f 1-4
  1> MRSET /MCGROUP NAME=$s17
  $ test "$(wc -c <&7)" -gt 262144 || echo 'The pipes held all of it.'; exec 7<&-; wait

A wait in a later command is told again.

  $ mrset run w.mrset -c 'MRSET /DISPLAY NAME=ALL' > /dev/null; cp s.mrset kept.mrset; cp w.mrset s.mrset
  $ { echo "MRSET /MCGROUP NAME=\$x VARIABLES=${name}1 ${name}2."; cat input input input | sed 's,log,MRSET /DISPLAY NAME=ALL.,'; echo "MRSET /MCGROUP NAME=\$y VARIABLES=${name}1 ${name}2."; } > waits.script
  $ hold IMMEDIATE 2; mrset run s.mrset waits.script > paused 2> err & exec 7< paused; head -c 1 <&7 > /dev/null
  $ hold IMMEDIATE 3; cat <&7 > /dev/null; exec 7<&-; wait; cat err; mv kept.mrset s.mrset
  mrset: waiting for s.mrset, which another process has locked.
  mrset: waiting for s.mrset, which another process has locked.

What is no time:

  $ define '$c' --lock-timeout soon
  mrset: --lock-timeout: soon is no whole number of seconds.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ define '$c' --lock-timeout -1
  mrset: --lock-timeout: -1 is no whole number of seconds.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ define '$c' --lock-timeout 1.5
  mrset: --lock-timeout: 1.5 is no whole number of seconds.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]
  $ define '$c' --lock-timeout 9999999999
  mrset: --lock-timeout: 9999999999 has more than nine digits; 999999999 seconds is the longest wait.
  Example:
    mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'
  Run "mrset run --help" for its options.
  [2]

A relaxed run leaves the same.

  $ define '$c' --relaxed; mrset log s.mrset | sed -n 2p; mrset check s.mrset
  1> MRSET /MCGROUP NAME=$c VARIABLES=t1 t2
         MRSET /MCGROUP NAME=$c VARIABLES=t1 t2
  s.mrset is sound.

A command whose process is killed while it is being saved may have been saved.

  $ kill_while_saving() {
  >   hold DEFERRED; : > err
  >   mrset run s.mrset -c 'MRSET /MCGROUP NAME=$d VARIABLES=t1 t2' "$@" > out 2> err 8>&- & pid=$!
  >   until grep -q waiting err; do sleep 0.1; done
  >   kill -9 $(cat /proc/$pid/task/$pid/children); wait $pid; echo $?; cat out; release
  > }
  $ kill_while_saving
  3
  1> MRSET /MCGROUP NAME=$d VARIABLES=t1 t2
  Fatal: The command's process was ended by signal 9 (Killed).
  The command was aborted while it was being saved; "mrset log" shows whether it changed the dataset.
  $ kill_while_saving --format json
  3
  {"command":1,"line":1,"text":"MRSET /MCGROUP NAME=$d VARIABLES=t1 t2","procedure":"Multiple Response Set","status":"aborted","items":[{"kind":"message","level":"fatal","text":"The command's process was ended by signal 9 (Killed)."}],"saved":"unknown","source":"-c 1"}
  $ mrset log s.mrset | sed -n 2p; mrset check s.mrset
         MRSET /MCGROUP NAME=$c VARIABLES=t1 t2
  s.mrset is sound.
