#!/usr/bin/env bash
# The module exports the symbols of one committed list and imports those of another: the host's operations, the C++
# runtime and the C library.
# It reaches its own functions by itself, never by a symbol that another library could define.
# Its objects hold no data that can change, so that nothing survives a call.
#   symbols.sh MODULE LISTS-FOLDER OBJECT...
set -euo pipefail
module=$1
lists=$2
shift 2

exported() { nm -D --defined-only "$module" | awk '{ print $3 }' | LC_ALL=C sort; }

# The C++ runtime's and the C library's symbols are versioned; those left are the host's and weak hooks of the linker.
imported() { nm -D --undefined-only "$module" | awk '$1 == "U" { print $2 }' | grep -v '@' | LC_ALL=C sort; }

# The versioned ones come from these libraries and no others.
libraries() { readelf -d "$module" | sed -nE 's/.*\(NEEDED\).*\[(.*)\]/\1/p' | LC_ALL=C sort; }

failed=0
compare() {
  if ! diff -u "$lists/$1" <("$2"); then
    if [ -n "${MRSET_UPDATE:-}" ]; then
      "$2" > "$lists/$1"
    fi
    printf 'The module disagrees with %s.\n' "$1"
    failed=1
  fi
}
compare module_exports.txt exported
compare module_host_imports.txt imported
for library in $(libraries); do
  if ! grep -qxF "$library" "$lists/module_libraries.txt"; then
    printf 'The module needs %s, which is not in module_libraries.txt.\n' "$library"
    failed=1
  fi
done
# A name that the module looks up at load time could be found in another library of the process.
for symbol in $(exported); do
  if readelf -rW "$module" | grep -F " $symbol "; then
    printf 'The module reaches its own %s through a symbol that another library can replace.\n' "$symbol"
    failed=1
  fi
done
if nm -C "$@" | grep -E ' [bBdDgGsS] '; then
  printf 'The objects of the module hold data that can change.\n'
  failed=1
fi
exit "$failed"
