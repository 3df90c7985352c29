#!/usr/bin/env bash
# The page in a real browser. Exit status 77, with a sentence, where there is no browser or no npm registry.
#   run.sh BUILD_FOLDER      the program in MRSET_PROGRAM
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
folder=$1/html
skip() { echo "SKIPPED: $1, so the page was not looked at in a browser."; exit 77; }

command -v node > /dev/null || skip 'there is no node'
command -v npm > /dev/null || skip 'there is no npm'
MRSET_BROWSER=${MRSET_BROWSER:-$(command -v chromium || command -v chromium-browser || command -v google-chrome || true)}
[ -n "$MRSET_BROWSER" ] || skip 'there is no Chromium'
export MRSET_BROWSER

mkdir -p "$folder"
if ! cmp -s "$here/package-lock.json" "$folder/package-lock.json" || [ ! -e "$folder/installed" ]; then
  rm -f "$folder/installed"
  cp "$here/package.json" "$here/package-lock.json" "$folder"
  (cd "$folder" && timeout 120 npm ci --no-audit --no-fund --ignore-scripts --loglevel=error) ||
    skip 'npm could not install playwright-core and axe-core'
  touch "$folder/installed"
fi
cp "$here/page_test.mjs" "$folder"
exec node --test "$folder/page_test.mjs"
