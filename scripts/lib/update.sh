# Writing anew what is kept as expected output. To be sourced, in the project's root.

# Where expected output is kept: transcripts, documents with examples, golden traces, lists of symbols and of packages.
kept=(tests/program README.md docs completions tests/traces/golden tests/checks tests/install)

# Tests that compare with kept output. With MRSET_UPDATE=1 they write it, and fail all the same where it was another; cram
# leaves the output of a transcript beside it.
comparing='^(program\.[a-z_]+|docs\..*\.(md|1)|shell\.Recording|checks\.symbols|install.*)$'

# update FOLDER: writes everything that is kept from what a build prints, shows the difference, and fails where a second
# run prints something else again.
update() {
  local before
  rm -f tests/program/*.err
  before=$(mktemp -d)
  cp -r --parents "${kept[@]}" "$before"
  write_kept_output "$1"
  show_difference "$before"
  rm -r "$before"
  if ! run_again "$1"; then
    echo 'FAILED: what was written does not pass, or its test cannot run.'
    failed+=(update)
  fi
}

# run_again FOLDER: the tests that differed. They pass now, unless what they print varies.
run_again() {
  if [ -s "$1/Testing/Temporary/LastTestsFailed.log" ]; then
    echo 'The tests of what was written run again ...'
    logged "$results/again.log" \
      ctest --test-dir "$1" --rerun-failed --output-on-failure --parallel "$(($(nproc) + 1))" || return 1
  fi
  echo 'What is kept is what the program prints.'
}

write_kept_output() {
  local printed
  echo 'Running the tests that compare with kept output ...'
  MRSET_UPDATE=1 ctest --test-dir "$1" --tests-regex "$comparing" --parallel "$(($(nproc) + 1))" > "$results/update.log" 2>&1 || true
  for printed in tests/program/*.err; do
    if [ -e "$printed" ]; then
      mv "$printed" "${printed%.err}"
    fi
  done
  "$1/bin/trace_tests" --update-goldens
  cmake --build "$1" --target generate > /dev/null
}

# show_difference BEFORE: what the update changed, whatever was changed before it.
show_difference() {
  local name
  for name in "${kept[@]}"; do
    git --no-pager diff --no-index --stat "$1/$name" "$name" | sed '$d' || true
  done
  for name in "${kept[@]}"; do
    git --no-pager diff --no-index "$1/$name" "$name" || true
  done
}
