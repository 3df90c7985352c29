The first process of a container ends by SIGTERM as others do, and leaves no temporary file. It takes the right to make
a container.

  $ . "$TESTDIR/setup.sh"
  $ unshare --fork --pid --mount-proc true 2> /dev/null || exit 80
  $ mkfifo pipe
  $ rm -f new.mrset; (unshare --fork --pid --mount-proc --kill-child mrset import pipe new.mrset & echo $! > pid; wait $!; echo $?) & exec 9> pipe; until ls .mrset-*.tmp > /dev/null 2>&1; do sleep 0.02; done
  $ timeout 5 pkill -TERM -P "$(cat pid)"; wait; ls -A | grep -c mrset-; exec 9>&-
  143
  0
