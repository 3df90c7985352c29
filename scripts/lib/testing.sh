# Building a preset and running its tests. To be sourced, in the project's root.

# Sanitized programs stop at the first finding.
export ASAN_OPTIONS=abort_on_error=0:detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1

# build PRESET: into build/PRESET.
build() {
  local log=build-$1.log
  cmake --preset "$1" -G Ninja > "$log" || { cat "$log"; exit 1; }
  rm "$log"
  cmake --build --preset "$1"
}

# run_tests FOLDER [CTEST-OPTION...]: one more at a time than there are processors, since some wait for locks.
run_tests() { ctest --test-dir "$1" --output-on-failure --parallel "$(($(nproc) + 1))" "${@:2}"; }

# run_measured_tests FOLDER: all tests of a build that measures coverage, each once.
run_measured_tests() {
  clear_counters "$1"
  run_tests "$1" --label-exclude '^module$'
  LLVM_PROFILE_FILE="$PWD/$1/exact/%m.profraw" run_tests "$1" --label-regex '^module$'
}
