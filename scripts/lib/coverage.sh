# The measurement of coverage, in a build folder of the preset "sanitize". To be sourced, in the project's root.
#
# Thresholds: backend/mrset 100% of lines and branches; standalone/ 95% of lines and 85% of branches. No source carries
# a mark that takes it out of the measurement.
#
# tests/coverage/unreachable.txt names, with the reasons, what no test can reach; what it names wrongly fails too.
#
# What is counted, and why by clang's source-based coverage:
# - A branch is a condition of the source that was true, and one that was false: each part of a && b for itself, and each
#   case of a switch. Branches that the compiler makes for exceptions, of nearly every call, are none. (gcc counts in the
#   machine code, where these and the flags of its clean-up code cannot be told from the source's.)
# - Assertions are no branches here. That each of them fails in some test, with its whole report, is a test of its own
#   (the list of assertions in tests/traces).
# - Counters are worked out from one another as though every call returned. So backend/mrset is measured in its unit
#   tests, a process each, and those count that end well and in which no exception is thrown
#   (tests/coverage/exceptions.cpp): its figures are exact.
# - standalone/ throws by design, and its worker ends through _exit() or abort(). Its counters therefore live in files
#   that are mapped into memory, where those of every process count. A condition after a call that threw counts as
#   false: the price is a figure a little too kind.
# The sanitizers change neither: the counters are placed by the source before the sanitizers see it.

# clear_counters FOLDER: what earlier runs counted is forgotten.
clear_counters() {
  rm -rf "$1/profile" "$1/exact"
  # Makes the files of the program's counters, for those tests too that run it as another user.
  "$1/bin/mrset" --version > /dev/null
  chmod -R a+rwX "$1/profile"
}

# export_coverage FOLDER PROFILES EXPORT BINARY...: what llvm-cov knows of the binaries' sources, in JSON. Fails where
# the counters of a function are those of another source.
export_coverage() {
  local profile=$1/$2.profdata binaries=("${@:4}")
  binaries=("${binaries[@]/#/--object=$1/}")
  llvm-profdata-14 merge --sparse "$1/$2"/*.profraw -o "$profile" || return 1
  # A function of a header stands with hash 0 in a binary that does not use it; it counts in those that do.
  if llvm-cov-14 report --dump --instr-profile "$profile" "${binaries[@]}" 2>&1 > /dev/null |
    grep '^hash-mismatch: ' | grep -v ' with hash = 0x0$'; then
    return 1
  fi
  llvm-cov-14 export --instr-profile "$profile" "${binaries[@]}" 2> "$1/$3.log" > "$1/$3" || { cat "$1/$3.log"; return 1; }
}

# report_coverage FOLDER: prints the totals, and fails below the thresholds with what is missing. Each file is in
# build/test-results/coverage.txt.
report_coverage() {
  mkdir -p build/test-results
  export_coverage "$1" exact module.json bin/module_tests &&
    export_coverage "$1" profile program.json bin/mrset &&
    python3 -B tests/coverage/report.py build/test-results/coverage.txt "$PWD" \
      "$1/module.json:backend/mrset:100:100" "$1/program.json:standalone:95:85"
}
