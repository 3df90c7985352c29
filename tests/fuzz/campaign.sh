#!/usr/bin/env bash
# Fuzzes for a chosen time, beginning with the committed corpora.
#
#   tests/fuzz/campaign.sh SECONDS [TARGET...]     runs each target that long, as many at a time as MRSET_FUZZ_JOBS
#                                                  says (one a processor); prints executions, coverage and finds
#   tests/fuzz/campaign.sh --merge [TARGET...]     takes what earlier campaigns learned into the committed corpora,
#                                                  which become as small as can be; inputs that were given a name stay
#
# Targets: tokens, script, import, block, dataset, tabulate (all where none is named). What is learned stays in
# build/fuzz/corpus and what is found in build/fuzz/finds/TARGET; a find is repeated by build/fuzz/bin/fuzz_TARGET FILE.
# Ends with 1 where there are finds.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

build=build/fuzz
all_targets=(tokens script import block dataset tabulate)

# The longest input that is tried.
declare -A longest=([tokens]=600 [script]=1500 [import]=2000 [block]=4096 [dataset]=64 [tabulate]=600)

# Options of libFuzzer that every run of the target has.
options() {
  local target=$1
  echo "-max_len=${longest[$target]}"
  echo "-artifact_prefix=$build/finds/$target/"
  if [ -f "tests/fuzz/$target.dict" ]; then
    echo "-dict=tests/fuzz/$target.dict"
  fi
}

# A process at a time, replaced after each find, so that a campaign lasts as long as it should.
run_target() {
  local target=$1 seconds=$2 arguments
  mapfile -t arguments < <(options "$target")
  nice "$build/bin/fuzz_$target" "${arguments[@]}" -fork=1 -ignore_crashes=1 -ignore_ooms=1 -ignore_timeouts=1 \
    -timeout=20 -rss_limit_mb=2560 -max_total_time="$seconds" \
    "$build/corpus/$target" "tests/fuzz/corpus/$target" > "$build/$target.log" 2>&1
}

# The coverage of a corpus is that of a run over nothing but its inputs.
report_target() {
  local target=$1 arguments executions covered all finds
  mapfile -t arguments < <(options "$target")
  executions=$(grep -aoE '^#[0-9]+: cov:' "$build/$target.log" | tail -1 | tr -cd '0-9')
  "$build/bin/fuzz_$target" "${arguments[@]}" -runs=0 "$build/corpus/$target" "tests/fuzz/corpus/$target" \
    > "$build/$target.coverage.log" 2>&1
  covered=$(grep -aoE 'INITED cov: [0-9]+ ft: [0-9]+' "$build/$target.coverage.log")
  all=$(grep -aoE 'Loaded .*\([0-9]+ inline' "$build/$target.coverage.log" | grep -oE '[0-9]+ inline' | tr -cd '0-9')
  finds=$(find "$build/finds/$target" -type f | wc -l)
  # shellcheck disable=SC2086  # "INITED cov: EDGES ft: FEATURES" is five words
  set -- ${covered:-INITED cov: 0 ft: 0}
  printf '%-8s %10s executions, %s of %s edges, %s features, %s finds\n' \
    "$target" "${executions:-0}" "$3" "$all" "$5" "$finds"
  [ "$finds" -eq 0 ]
}

merge_target() {
  local target=$1 arguments merged
  mapfile -t arguments < <(options "$target")
  merged=$(mktemp -d "$build/merged-XXXXXX")
  "$build/bin/fuzz_$target" "${arguments[@]}" -set_cover_merge=1 -use_counters=0 "$merged" "tests/fuzz/corpus/$target" \
    "$build/corpus/$target" > "$build/$target.merge.log" 2>&1
  find "tests/fuzz/corpus/$target" -type f ! -regex '.*/[0-9a-f]+' -exec cp -t "$merged" {} +
  rm -rf "tests/fuzz/corpus/$target"
  mv "$merged" "tests/fuzz/corpus/$target"
  chmod 755 "tests/fuzz/corpus/$target"
  printf '%-8s %s inputs, %s bytes\n' "$target" "$(find "tests/fuzz/corpus/$target" -type f | wc -l)" \
    "$(cat "tests/fuzz/corpus/$target"/* | wc -c)"
}

usage() {
  sed -nE '2,/^set /{s/^# ?//p}' "${BASH_SOURCE[0]}"
  exit 2
}

[ $# -ge 1 ] || usage
action=$1
shift
[ "$action" = --merge ] || [[ $action =~ ^[1-9][0-9]*$ ]] || usage
targets=("$@")
[ $# -ge 1 ] || targets=("${all_targets[@]}")
for target in "${targets[@]}"; do
  [ -n "${longest[$target]:-}" ] || usage
done

cmake --preset fuzz -G Ninja > /dev/null
cmake --build --preset fuzz > /dev/null
for target in "${targets[@]}"; do
  mkdir -p "$build/corpus/$target" "$build/finds/$target"
done

# Where there is room in memory, the datasets that are tried out need no disk.
folders=/dev/shm
[ -w "$folders" ] || folders=${TMPDIR:-/tmp}
TMPDIR=$(mktemp -d "$folders/mrset-campaign-XXXXXX")
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT
export ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1

if [ "$action" = --merge ]; then
  for target in "${targets[@]}"; do
    merge_target "$target"
  done
  exit
fi

jobs=${MRSET_FUZZ_JOBS:-$(nproc)}
for target in "${targets[@]}"; do
  while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do
    wait -n || true
  done
  run_target "$target" "$action" || echo "$target ended early: $build/$target.log" >&2 &
done
wait
status=0
for target in "${targets[@]}"; do
  report_target "$target" || status=1
done
exit $status
