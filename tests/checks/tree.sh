#!/usr/bin/env bash
# The tree is tidy. Its root has the entries of root.txt and no stray artefacts; what builds, git and editors keep there may
# stay. No transcript has patterns, which would not outlive an update: what varies is filtered.
#   tree.sh ROOT
set -euo pipefail
cd "$1"
kept_by_tools='^(\.git|build(-.*)?|compile_commands\.json|\.cache|\.idea|\.vscode)$'
if ! diff -u tests/checks/root.txt <(ls -A | grep -vE "$kept_by_tools" | LC_ALL=C sort); then
  echo 'The root disagrees with tests/checks/root.txt.'
  exit 1
fi
if grep -nE ' \((re|glob)\)$' tests/program/*.t; then
  echo 'A transcript has a pattern: filter what varies instead, as numberless in tests/program/setup.sh does.'
  exit 1
fi
