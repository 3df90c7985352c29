#!/usr/bin/env bash
# Makes the Debian packages of what is built, installs them into an empty root and uses what is there.
#   packages_test.sh ROOT BUILD VERSION
set -euo pipefail
source "$1/tests/install/use_tree.sh"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cpack --config "$2/CPackConfig.cmake" -B "$scratch/packages" > "$scratch/cpack.log" 2>&1 || { cat "$scratch/cpack.log"; exit 1; }
architecture=$(dpkg --print-architecture)
program=$scratch/packages/mrset_$3_$architecture.deb
development=$scratch/packages/mrset-dev_$3_$architecture.deb

field() { dpkg-deb --field "$1" "$2"; }

# What is in a package, without folders, documents and examples: the path of each file or link.
files() { dpkg-deb --contents "$1" | awk '!/^d/ { print $6 }' | grep -v '^./usr/share/doc/mrset/[^c]' | LC_ALL=C sort; }

field "$development" Depends > "$scratch/depends.txt"
expect "$scratch/depends.txt" 'dependency of mrset-dev' <<< "mrset (= $3)"
# The packages of the libraries that the program is linked with, by their names without versions.
field "$program" Depends | tr ',' '\n' | sed -E 's/^ *([a-z+-]+).*/\1/' | LC_ALL=C sort > "$scratch/depends.txt"
expect_kept "$scratch/depends.txt" 'dependencies of mrset' "$1/tests/install/mrset.depends"
files "$program" > "$scratch/files.txt"
expect_kept "$scratch/files.txt" 'contents of mrset' "$1/tests/install/mrset.files"
files "$development" | grep -v '/include/mrset/host/' > "$scratch/files.txt"
expect_kept "$scratch/files.txt" 'contents of mrset-dev' "$1/tests/install/mrset-dev.files"

# The root is empty: what the packages depend on is only in the system that runs the test, and there is no shell that
# could run the ldconfig of a --configure.
mkdir -p "$scratch/root/var/lib/dpkg"
dpkg --root="$scratch/root" --force-depends --force-not-root --force-bad-path --log="$scratch/dpkg.log" \
  --unpack "$program" "$development" > "$scratch/install.log" 2>&1 || { cat "$scratch/install.log"; exit 1; }
use_program "$1" "$scratch/root/usr" "$scratch"
use_help "$scratch/root/usr" "$scratch"
# Of mrset-dev the test of the installed tree makes use; here it must be the same.
cmake --install "$2" --prefix "$scratch/tree" > "$scratch/install.log"
for folder in include lib/cmake share; do
  diff -r "$scratch/tree/$folder" "$scratch/root/usr/$folder" || failed=1
done
exit "$failed"
