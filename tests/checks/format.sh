#!/usr/bin/env bash
# Every source file is formatted.
set -euo pipefail
cd "$1"
find host host_check backend standalone tests bench -name '*.h' -o -name '*.cpp' | LC_ALL=C sort |
  xargs clang-format-14 --dry-run -Werror --style=file
