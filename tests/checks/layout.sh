#!/usr/bin/env bash
# Who may include what: the arrows between the parts of the project, and one file for each library.
set -euo pipefail
cd "$1"
failed=0

# includes FOLDER...: "file:included" for every include directive, without brackets and quotes.
includes() { grep -rEo '^ *# *include *[<"][^>"]+[>"]' "$@" --include='*.h' --include='*.cpp' | sed -E 's/: *# *include *[<"]/:/; s/[>"]$//'; }

# deny MESSAGE: fails for every line on standard input.
deny() {
  local line
  while IFS= read -r line; do
    printf '%s: %s\n' "$1" "$line"
    failed=1
  done
}

# A header of the standard library has neither a folder nor an ending, but for <cassert> and its kin.
deny 'backend/ includes more than the standard library and host/' \
  < <(includes backend | grep -vE ':(host/[a-z_]+\.h|backend/mrset/[a-z]+\.h|[a-z_]+)$' || true)
# Only the header of the module's exports takes others, for the types that these have.
deny 'host/ includes more than the standard library' \
  < <(includes host | grep -vE ':[a-z_]+$|^host/module\.h:host/[a-z_]+\.h$' || true)
deny 'host_check/ includes more than the standard library and host/' \
  < <(includes host_check | grep -vE ':(host|host_check)/[a-z_]+\.h$|:[a-z_]+$' || true)
deny 'standalone/ includes the module' < <(includes standalone | grep -E ':backend/' || true)
deny 'the scripted host knows the other parts' < <(includes tests/host | grep -E ':(backend|standalone)/' || true)
deny 'ICU is included outside its file' \
  < <(includes backend host standalone | grep -E ':unicode/' | grep -v '^standalone/text/unicode.cpp:' || true)
deny 'SQLite is included outside its file' \
  < <(includes backend host standalone | grep -E ':sqlite3' | grep -vE '^standalone/storage/database(_files)?\.(h|cpp):' || true)
deny 'the CSV library is included outside its file' \
  < <(includes backend host standalone | grep -E ':csv\.h$' | grep -v '^standalone/import/csv.cpp:' || true)
deny 'the library of checksums is included outside its file' \
  < <(includes backend host standalone | grep -E ':xxhash\.h$' | grep -v '^standalone/cases/checksum.cpp:' || true)
deny 'the serialiser is included outside its file' \
  < <(includes backend host standalone | grep -E ':cereal/' | grep -v '^standalone/run/codec.cpp:' || true)
deny 'the writer of workbooks is included outside its file' \
  < <(includes backend host standalone | grep -E ':xlsxwriter' | grep -v '^standalone/output/xlsx/xlsx_functions.h:' || true)
deny 'the line editor is included outside its file' \
  < <(includes backend host standalone | grep -E ':(histedit\.h|editline/)' | grep -v '^standalone/shell/line_editor.cpp:' || true)
deny 'Boost is included outside its file' \
  < <(includes backend host standalone | grep -E ':boost/' | grep -v '^standalone/tabulation/statistics/distributions.cpp:' || true)

# check_order ROOT FOLDER...: all folders of ROOT, each of which includes itself, those before it, and files of ROOT itself.
check_order() {
  local root=$1 folder file included rest known=' '
  for folder in "${@:2}"; do
    known+="$folder "
    while IFS=: read -r file included; do
      rest=${included#"$root"/}
      case "$known" in
        *" ${rest%%/*} "*) ;;
        *) deny "$root/$folder/ includes a folder that comes after it" <<< "$file: $included" ;;
      esac
    done < <(includes "$root/$folder" | grep -E ":$root/.+/" || true)
  done
  deny "a folder of $root/ has no place in the order" \
    < <(find "$root" -mindepth 1 -maxdepth 1 -type d -printf '%f\n' | grep -vxF "$(printf '%s\n' "${@:2}")" || true)
}
check_order standalone text files language storage cases dataset tabulation check output hints host run import sets shell \
  console options advice commands program
check_order standalone/tabulation grammar reading counting statistics table

# Files are touched in one folder, which owns descriptors, repeats what signals interrupt and leaves nothing half done.
deny 'a call on files stands outside standalone/files/' < <(
  grep -rnE '(^|[^.>:A-Za-z_])(open|openat|creat|read|write|pread|pwrite|rename|renameat2?|link|unlink|fsync|fdatasync|mkostemp|close)\(' \
    standalone --include='*.cpp' --include='*.h' | grep -vE '^standalone/files/|^[^:]+:[0-9]+: *(//|///)' || true)

if [ "$failed" -eq 0 ]; then
  echo 'The layout holds.'
fi
exit "$failed"
