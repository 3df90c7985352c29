The module is found from the program's place, and MRSET_MODULE overrides that.

  $ . "$TESTDIR/setup.sh"
  $ small s.mrset
  $ MRSET_MODULE=/no/such/module.so mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL'
  mrset: The module /no/such/module.so cannot be loaded: /no/such/module.so: cannot open shared object file: No such file or directory.
  [2]
  $ echo nonsense > nonsense.so
  $ MRSET_MODULE=nonsense.so mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' 2>&1 | sed "s#$PWD#HERE#g"
  mrset: The module nonsense.so cannot be loaded: HERE/nonsense.so: file too short.
  [2]
  $ MRSET_MODULE=$(ls -d /lib/*/libm.so.6) mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' 2>&1 | sed -E "s#/lib/[^/]*/#LIB/#"
  mrset: The file LIB/libm.so.6 is not an MRSET module: it has no entry point mrset_.
  [2]

It is loaded by the first command that needs it.

  $ MRSET_MODULE=/no/such/module.so mrset run s.mrset -c 'OTHER'
  1> OTHER
  Error: Line 1: OTHER is not a command. The commands here are MRSET and TABULATE.
    -c 1, line 1, column 1:
      OTHER
      ^^^^^
  [1]
  $ MRSET_MODULE=/no/such/module.so mrset sets s.mrset
  The dataset has no multiple response sets.

The program copied elsewhere with its libraries.

  $ build=$(dirname "$(dirname "$MRSET_PROGRAM")")
  $ mkdir -p elsewhere/bin elsewhere/lib
  $ cp "$build/bin/mrset" elsewhere/bin
  $ cp -P "$build"/lib/*.so* elsewhere/lib
  $ elsewhere/bin/mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL'
  1> MRSET /DISPLAY NAME=ALL
  Warning: No MRSET to display
  $ mv elsewhere/lib/mrset.so elsewhere/bin
  $ elsewhere/bin/mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL'
  1> MRSET /DISPLAY NAME=ALL
  Warning: No MRSET to display
  $ rm elsewhere/bin/mrset.so
  $ elsewhere/bin/mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL' 2>&1 | sed "s#$PWD#HERE#g"
  mrset: The module mrset.so is neither next to the program in HERE/elsewhere/bin nor in its library folder; set MRSET_MODULE to its path.
  [2]

The module that writes workbooks is loaded for a workbook, before anything runs; the others do without.

  $ rm elsewhere/lib/mrset-xlsx.so
  $ cp "$build/lib/mrset.so" elsewhere/lib
  $ elsewhere/bin/mrset run s.mrset -c 'MRSET /DISPLAY NAME=ALL'
  1> MRSET /DISPLAY NAME=ALL
  Warning: No MRSET to display
  $ elsewhere/bin/mrset run s.mrset --output sets.xlsx -c 'MRSET /MCGROUP NAME=$s VARIABLES=a b' 2>&1 | sed "s#$PWD#HERE#g"
  mrset: The module mrset-xlsx.so is neither next to the program in HERE/elsewhere/bin nor in its library folder; it writes workbooks and comes with the program.
  [2]
  $ cp "$build/lib/mrset.so" elsewhere/bin/mrset-xlsx.so
  $ elsewhere/bin/mrset run s.mrset --output sets.xlsx -c 'MRSET /MCGROUP NAME=$s VARIABLES=a b' 2>&1 | sed "s#$PWD#HERE#g"
  mrset: The file HERE/elsewhere/bin/mrset-xlsx.so is not the module that writes workbooks: it has no mrsetXlsx.
  [2]
  $ ls sets.xlsx
  ls: cannot access 'sets.xlsx': No such file or directory
  [2]
  $ mrset sets s.mrset
  The dataset has no multiple response sets.
