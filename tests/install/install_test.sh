#!/usr/bin/env bash
# Installs into a folder, moves that folder, and uses what is there.
#   install_test.sh ROOT BUILD COMPILER
set -euo pipefail
source "$1/tests/install/use_tree.sh"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake --install "$2" --prefix "$scratch/first" > "$scratch/install.log"
mv "$scratch/first" "$scratch/moved"
use_program "$1" "$scratch/moved" "$scratch"
use_help "$scratch/moved" "$scratch"
use_module "$1" "$scratch/moved" "$scratch" "$3"
exit "$failed"
