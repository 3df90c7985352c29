# Building a preset and running its tests. To be sourced, in the project's root.

# Sanitized programs stop at the first finding.
export ASAN_OPTIONS=abort_on_error=0:detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1

# What failed, in words. Failing tests do not stop a run; a build that fails does.
failed=()

# Each run of ctest leaves its results and its log here.
results=build/test-results

# build PRESET: into build/PRESET.
build() {
  logged "build/configure-$1.log" cmake --preset "$1" -G Ninja && cmake --build --preset "$1" || {
    failed+=("the build of $1")
    exit 1
  }
}

# run_tests FOLDER [CTEST-OPTION...]: one more at a time than there are processors, since some wait for locks. Shows
# progress and every failure; the rest goes to the log.
run_tests() {
  local name status=0
  name=$(basename "$1")-$(ls "$results" | grep -c '\.xml$' || true)
  ctest --test-dir "$1" --output-on-failure --no-label-summary --parallel "$(($(nproc) + 1))" \
    --output-junit "$PWD/$results/$name.xml" "${@:2}" 2>&1 |
    python3 -B scripts/lib/test_results.py follow "$results/$name.log" || status=1
  if [ $status -ne 0 ]; then
    failed+=("tests of $1")
  fi
}

# run_measured_tests FOLDER: all tests of a build that measures coverage, each once.
run_measured_tests() {
  clear_counters "$1"
  run_tests "$1" --label-exclude '^module$'
  LLVM_PROFILE_FILE="$PWD/$1/exact/%m.profraw" run_tests "$1" --label-regex '^module$'
}

# Prepares a run: its results are counted, and its last line says how many there are, however it ends.
begin_run() {
  SECONDS=0
  rm -rf "$results"
  mkdir -p "$results"
  trap end_run EXIT
}

end_run() {
  local status=$? what
  trap - EXIT
  if [ ${#failed[@]} -eq 0 ] && [ $status -ne 0 ]; then
    failed=("the run ended early, with status $status")
  fi
  echo
  for what in "${failed[@]}"; do
    printf 'FAILED: %s\n' "$what"
  done
  printf 'Details: %s/. Time: %d min %02d s.\n' "$results" $((SECONDS / 60)) $((SECONDS % 60))
  python3 -B scripts/lib/test_results.py count "$results" || status=1
  if [ ${#failed[@]} -ne 0 ]; then
    status=1
  fi
  exit $status
}
