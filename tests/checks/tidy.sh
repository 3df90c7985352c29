#!/usr/bin/env bash
# clang-tidy finds nothing in the sources of the folders, nor in the headers that they include.
#   tidy.sh ROOT BUILD-FOLDER FOLDER...
set -euo pipefail
cd "$1"
build=$2
shift 2
find "$@" -name '*.cpp' -print0 | LC_ALL=C sort -z |
  xargs -0 -P "$(nproc)" -n 1 clang-tidy-14 --quiet -p "$build"
