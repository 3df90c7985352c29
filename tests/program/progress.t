Work that takes long shows on a terminal how it gets on. `script` gives a terminal; what is drawn on one line is shown
here on lines of its own, its figures as N.

  $ . "$TESTDIR/setup.sh"
  $ drawn() { sed "s/\r$//" | tr "\r" "\n" | sed -E "/:/s/[0-9]+(\.[0-9]+)?/N/g; s/ +$//" | uniq; }
  $ on_terminal() { script -qefc "$1" /dev/null < /dev/null; }
  $ slow="{ printf 'q1,q2\\n1,2\\n'; sleep 1; printf '3,4\\n'; } | mrset import /dev/stdin"

An import: the line is gone before the summary comes.

  $ on_terminal "$slow s.mrset" | drawn
  
  Looking at /dev/stdin: N kB, N kB/s
  
  s.mrset: N variables, N cases

Nothing of it where standard error is no terminal.

  $ on_terminal "$slow t.mrset 2> errors"; cat errors
  t.mrset: 2 variables, 2 cases

A run whose results go elsewhere. Another process keeps the dataset locked for a moment.

  $ small s2.mrset
  $ lock() { { echo 'BEGIN IMMEDIATE;'; touch locked; sleep 0.8; echo 'COMMIT;'; } | sqlite3 s2.mrset & while [ ! -e locked ]; do sleep 0.01; done; rm locked; sleep 0.1; }
  $ two="mrset run s2.mrset -c 'MRSET /MCGROUP NAME=\$a VARIABLES=t1 t2' -c 'MRSET /DELETE NAME=ALL'"
  $ lock; on_terminal "$two > results" | drawn; wait
  
  Running: N of N commands, N/s, N s left
  

  $ lock; on_terminal "$two --output results" | drawn; wait
  
  Running: N of N commands, N/s, N s left
  

Results on the terminal itself show how the run gets on.

  $ lock; NO_COLOR=1 on_terminal "$two" | drawn; wait
  1> MRSET /MCGROUP NAME=$a VARIABLES=t1 t2
  
  2> MRSET /DELETE NAME=ALL

