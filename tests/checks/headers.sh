#!/usr/bin/env bash
# Every header compiles alone. Where the source of the same name includes it before all else, the build has proven that.
#   headers.sh ROOT COMPILER
set -euo pipefail
cd "$1"
export compiler=$2

check() {
  local source=${1%.h}.cpp
  if [ -f "$source" ] && [ "$(grep -m 1 '^ *#' "$source")" = "#include \"$1\"" ]; then
    return 0
  fi
  if ! printf '#include "%s"\n' "$1" |
      "$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Werror -I. -fsyntax-only -x c++ -; then
    printf '%s does not compile alone.\n' "$1"
    return 1
  fi
}
export -f check

find host host_check backend standalone tests bench -name '*.h' -print0 | LC_ALL=C sort -z |
  xargs -0 -P "$(nproc)" -I{} bash -c 'check "$1"' check {}
