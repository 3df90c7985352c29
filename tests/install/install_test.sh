#!/usr/bin/env bash
# Installs into a folder, moves that folder, and uses what is there: the program runs commands, and a project that knows
# nothing but the installed package loads the module into a host of its own.
#   install_test.sh ROOT BUILD COMPILER
set -euo pipefail
root=$1
build=$2
compiler=$3

for tool in ninja mandoc zsh diff; do
  command -v "$tool" > /dev/null || { echo "This test needs $tool, which is not installed."; exit 1; }
done

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cmake --install "$build" --prefix "$scratch/first" > "$scratch/install.log"
mv "$scratch/first" "$scratch/moved"

expect() {
  if ! diff -u "$1" -; then
    printf 'The installed %s disagrees.\n' "$2"
    exit 1
  fi
}

mrset=$scratch/moved/bin/mrset
"$mrset" import --schema "$root/examples/breakfast.schema.json" "$root/examples/breakfast.csv" "$scratch/b.mrset" 2> /dev/null
"$mrset" run "$scratch/b.mrset" -c 'MRSET /MCGROUP NAME=$t VARIABLES=topping1 TO topping4' > /dev/null
"$mrset" sets "$scratch/b.mrset" --format json > "$scratch/sets.json"
expect "$scratch/sets.json" program <<'JSON'
{"sets":[{"name":"$t","type":"category","label":"","countedValue":"","labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["topping1","topping2","topping3","topping4"]}]}
JSON

share=$scratch/moved/share
mandoc -T lint -W warning "$share/man/man1/mrset.1"
bash --norc -c 'source "$1/bash-completion/completions/mrset"; complete -p mrset' bash "$share" > "$scratch/complete.txt"
expect "$scratch/complete.txt" 'completion of bash' <<< 'complete -F _mrset mrset'
zsh -f -c 'fpath=("$1/zsh/site-functions" $fpath); autoload -Uz compinit; compinit -u -D; print $_comps[mrset]' zsh \
  "$share" > "$scratch/complete.txt"
expect "$scratch/complete.txt" 'completion of zsh' <<< '_mrset'

# The host's sources are copied away, so that their includes of host/ find the installed one.
mkdir -p "$scratch/user/tests/host_check"
cp -r "$root/tests/host" "$scratch/user/tests/"
cp "$root"/tests/host_check/scripted_factory.* "$scratch/user/tests/host_check/"
rm "$scratch"/user/tests/host/*_test.cpp "$scratch"/user/tests/host/allocation.cpp
cp "$root"/tests/install/CMakeLists.txt "$root"/tests/install/*.cpp "$scratch/user/"
sources=$(printf '%s;' "$scratch"/user/tests/host/*.cpp)
cmake -S "$scratch/user" -B "$scratch/user/build" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_PREFIX_PATH="$scratch/moved" -DHOST_SOURCES="$sources" -DHOST_INCLUDE_DIR="$scratch/user" > "$scratch/user.log" 2>&1 &&
  cmake --build "$scratch/user/build" >> "$scratch/user.log" 2>&1 || { cat "$scratch/user.log"; exit 1; }
if ! "$scratch/user/build/check_host" > "$scratch/check_host.txt"; then
  cat "$scratch/check_host.txt"
  exit 1
fi
for program in load_module phases; do
  "$scratch/user/build/$program" > "$scratch/$program.txt"
  expect "$scratch/$program.txt" "module, used by $program," < "$root/tests/install/$program.txt"
done
echo 'The installed tree works.'
