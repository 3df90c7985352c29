# What an installed tree is good for: the program runs commands, and a project that knows nothing but the installed CMake
# package loads the module into a host of its own. To be sourced; whoever does exits with $failed.

failed=0

# expect FILE WHAT: the file holds what comes on standard input.
expect() {
  if ! diff -u - "$1"; then
    printf 'The installed %s disagrees.\n' "$2"
    failed=1
  fi
}

# expect_kept FILE WHAT KEPT: the file holds what the kept one does, which with MRSET_UPDATE is written anew.
expect_kept() {
  expect "$1" "$2" < "$3"
  if [ -n "${MRSET_UPDATE:-}" ]; then
    cp "$1" "$3"
  fi
}

# use_program ROOT TREE SCRATCH
use_program() {
  local mrset=$2/bin/mrset examples=$1/examples scratch=$3
  "$mrset" import --schema "$examples/breakfast.schema.json" "$examples/breakfast.csv" "$scratch/b.mrset" 2> /dev/null
  "$mrset" run "$scratch/b.mrset" -c 'MRSET /MCGROUP NAME=$t VARIABLES=topping1 TO topping4' > /dev/null
  "$mrset" script "$scratch/b.mrset" | grep -v '^\*' > "$scratch/b.script"
  expect "$scratch/b.script" program <<'SCRIPT'

MRSET /MCGROUP NAME=$t
  VARIABLES=topping1 topping2 topping3 topping4.
SCRIPT
}

# use_help TREE SCRATCH: the manual page and the completions.
use_help() {
  local share=$1/share completion=$2/complete.txt
  mandoc -T lint -W warning "$share/man/man1/mrset.1"
  bash --norc -c 'source "$1/bash-completion/completions/mrset"; complete -p mrset' bash "$share" > "$completion"
  expect "$completion" 'completion of bash' <<< 'complete -F _mrset mrset'
  zsh -f -c 'fpath=("$1/zsh/site-functions" $fpath); autoload -Uz compinit; compinit -u -D; print $_comps[mrset]' zsh \
    "$share" > "$completion"
  expect "$completion" 'completion of zsh' <<< '_mrset'
}

# use_module ROOT TREE SCRATCH COMPILER. The host's sources are copied away, so that their includes of host/ find the
# installed one.
use_module() {
  local root=$1 user=$3/user sources program
  mkdir -p "$user/tests/host_check"
  cp -r "$root/tests/host" "$user/tests/"
  cp "$root"/tests/host_check/scripted_factory.* "$user/tests/host_check/"
  rm "$user"/tests/host/*_test.cpp "$user"/tests/host/allocation.cpp
  cp "$root"/tests/install/CMakeLists.txt "$root"/tests/install/*.cpp "$user/"
  sources=$(printf '%s;' "$user"/tests/host/*.cpp)
  cmake -S "$user" -B "$user/build" -G Ninja -DCMAKE_CXX_COMPILER="$4" -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_PREFIX_PATH="$2" -DHOST_SOURCES="$sources" -DHOST_INCLUDE_DIR="$user" > "$3/user.log" 2>&1 &&
    cmake --build "$user/build" >> "$3/user.log" 2>&1 || { cat "$3/user.log"; exit 1; }
  if ! "$user/build/check_host" > "$3/check_host.txt"; then
    cat "$3/check_host.txt"
    failed=1
  fi
  for program in load_module phases; do
    "$user/build/$program" > "$3/$program.txt"
    expect_kept "$3/$program.txt" "module, used by $program," "$root/tests/install/$program.txt"
  done
}
