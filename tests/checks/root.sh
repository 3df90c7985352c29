#!/usr/bin/env bash
# The project's root has the entries of root.txt and no stray artefacts. What builds, git and editors keep there may stay.
#   root.sh ROOT
set -euo pipefail
cd "$1"
kept_by_tools='^(\.git|build(-.*)?|compile_commands\.json|\.cache|\.idea|\.vscode)$'
if ! diff -u tests/checks/root.txt <(ls -A | grep -vE "$kept_by_tools" | LC_ALL=C sort); then
  echo 'The root disagrees with tests/checks/root.txt.'
  exit 1
fi
