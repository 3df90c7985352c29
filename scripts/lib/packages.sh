# Debian packages that the project needs, and their installation. To be sourced.

build_packages=(
  g++ cmake ninja-build
  libicu-dev libsqlite3-dev libcereal-dev libcli11-dev nlohmann-json3-dev libfmt-dev libcsv-dev libedit-dev libxxhash-dev
  libboost-math-dev libxlsxwriter-dev
)

test_packages=(
  libgtest-dev libgmock-dev librapidcheck-dev libbenchmark-dev
  clang-14 libclang-rt-14-dev clang-format-14 clang-tidy-14 llvm-14 lld-14
  python3-cram python3 python3-pyte cmark-gfm mandoc zsh sqlite3 binutils git dpkg-dev file
)

# For the page in a real browser. npm gets the test's two packages; any npm that is there already will do.
browser_packages=(chromium fonts-dejavu-core)
npm_packages=(nodejs npm)

valgrind_packages=(valgrind)

# install_packages PURPOSE PACKAGE...: installs the missing packages, as root or through sudo. Says beforehand how many
# packages that adds, with their own dependencies, and their size.
install_packages() {
  local purpose=$1 package missing=() as_root=() log=build/install.log
  shift
  for package in "$@"; do
    if ! dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null | grep -q '^installed$'; then
      missing+=("$package")
    fi
  done
  if [ ${#missing[@]} -eq 0 ]; then
    return 0
  fi
  if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
  fi
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 apt-get)
  mkdir -p build
  echo "Missing for $purpose: ${missing[*]}"
  echo 'Reading the package lists ...'
  logged "$log" "${apt[@]}" update || return 1
  "${apt[@]}" install --assume-no --no-install-recommends "${missing[@]}" 2>&1 | sed -nE '
    s/^.* ([0-9]+) newly installed.*$/Installing \1 packages, with what they need themselves:/p
    s/^Need to get ([^/]*\/)?(.*B) of archives.*$/  \2 to download/p
    s/^After this operation, (.*B) of additional.*$/  \1 on the disk/p' || true
  if ! "${apt[@]}" install -y --no-install-recommends -o APT::Status-Fd=1 "${missing[@]}" 2>&1 | apt_progress "$log"; then
    cat "$log"
    return 1
  fi
  echo 'Installed.'
}

# apt_progress LOG: copies apt's output to LOG and prints each further fifth of the work.
apt_progress() {
  local line step= now
  while IFS= read -r line; do
    if [[ $line =~ ^(dl|pm)status:.*:([0-9]+)\.[0-9]+: ]]; then
      now=$((BASH_REMATCH[2] / 20 * 20))
      if [ "${BASH_REMATCH[1]}$now" != "$step" ]; then
        step=${BASH_REMATCH[1]}$now
        case "$step" in
          dl*) echo "  downloading: $now%" ;;
          pm*) echo "  installing: $now%" ;;
        esac
      fi
    else
      printf '%s\n' "$line" >&3
    fi
  done 3> "$1"
}

# logged FILE COMMAND...: runs it with its output in FILE, which is shown if the command fails.
logged() {
  local log=$1
  shift
  if ! "$@" > "$log" 2>&1; then
    cat "$log"
    return 1
  fi
}

# Installs a browser and npm; if they are not available, says so and continues without them.
install_browser() {
  local packages=("${browser_packages[@]}")
  if ! command -v npm > /dev/null; then
    packages+=("${npm_packages[@]}")
  fi
  install_packages 'the test of the HTML page in a browser' "${packages[@]}" ||
    echo 'No browser or no npm can be installed: the test of the page will be skipped.'
}
