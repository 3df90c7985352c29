#!/usr/bin/env bash
# Every header compiles alone.
#   headers.sh ROOT COMPILER
set -euo pipefail
cd "$1"
failed=0
while IFS= read -r header; do
  if ! printf '#include "%s"\n' "$header" | "$2" -std=c++17 -Wall -Wextra -Wpedantic -Werror -I. -fsyntax-only -x c++ -; then
    printf '%s does not compile alone.\n' "$header"
    failed=1
  fi
done < <(find host backend standalone tests -name '*.h' | LC_ALL=C sort)
exit "$failed"
