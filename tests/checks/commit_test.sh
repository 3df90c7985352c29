#!/usr/bin/env bash
# cmake/commit.cmake names the commit of a working tree and of nothing else, and leaves a file that is right as it is.
#   commit_test.sh ROOT
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
git() { command git -C "$scratch/tree" -c user.name=x -c user.email=x -c init.defaultBranch=x "$@"; }

# expect WHAT SOURCES [GIT]: what is written for that folder.
expect() {
  local written
  cmake "-DGIT=${3-git}" "-DSOURCES=$2" "-DFILE=$scratch/commit.h" -P "$root/cmake/commit.cmake"
  written=$(cat "$scratch/commit.h")
  if [ "$written" != "#define MRSET_COMMIT \"$1\"" ]; then
    printf 'For %s expected "%s": %s\n' "$2" "$1" "$written"
    exit 1
  fi
}

root=$1
mkdir -p "$scratch/tree/below" "$scratch/none"
git init --quiet
expect '' "$scratch/tree"
git commit --quiet --allow-empty --message=one
first=$(git rev-parse --short=12 HEAD)
expect " ($first)" "$scratch/tree"
touch --date=2001-01-01 "$scratch/commit.h"
expect " ($first)" "$scratch/tree"
if [ "$(date --reference="$scratch/commit.h" +%Y)" != 2001 ]; then
  echo 'A file that is right was written again.'
  exit 1
fi
git commit --quiet --allow-empty --message=two
expect " ($(git rev-parse --short=12 HEAD))" "$scratch/tree"
expect '' "$scratch/tree/below"
expect '' "$scratch/none"
expect '' "$scratch/tree" ''
