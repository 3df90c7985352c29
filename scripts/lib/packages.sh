# Debian packages that the project needs, and their installation. To be sourced.

build_packages=(
  g++ cmake ninja-build
  libicu-dev libsqlite3-dev libcli11-dev nlohmann-json3-dev libfmt-dev libcsv-dev libedit-dev
)

test_packages=(
  libgtest-dev libgmock-dev librapidcheck-dev libbenchmark-dev
  clang-14 libclang-rt-14-dev clang-format-14 clang-tidy-14 llvm-14
  python3-cram python3 python3-pyte cmark-gfm mandoc zsh sqlite3 binutils git
)

# For the page in a real browser. npm gets the test's two packages; any npm that is there already will do.
browser_packages=(chromium fonts-dejavu-core)
npm_packages=(nodejs npm)

valgrind_packages=(valgrind)

# Installs those of the named packages that are missing, as root or through sudo.
install_packages() {
  local package missing=() as_root=()
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
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -q
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# Installs a browser and npm; where they cannot be had, says so and goes on without.
install_browser() {
  local packages=("${browser_packages[@]}")
  if ! command -v npm > /dev/null; then
    packages+=("${npm_packages[@]}")
  fi
  install_packages "${packages[@]}" || echo 'No browser or no npm can be installed: the test of the page is skipped.'
}
