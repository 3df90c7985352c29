#!/usr/bin/env bash
# The program shows the operations of host/ and nothing else. They are what the standalone and the scripted host both
# define: no other header belongs to both.
#   exports.sh PROGRAM EXPORTS SCRIPTED-HOST OBJECT...
set -euo pipefail
program=$1
exports=$2
scripted=$3
shift 3

# Weak symbols are templates of the C++ library and of fmt, which their libraries have as well; but for the type
# information of classes, by which a sanitizer knows them.
# The linker's marks of sections are shown where a library has such marks, too; variables of libc that an archive uses
# are copied into the program and keep libc's version.
strong() { nm --extern-only --defined-only "$@" | awk '$3 ~ /^(__bss_start|_edata|_end)$|@GLIBC/ { next } $2 ~ /^[TDB]$/ || $3 ~ /^_ZT[ISV][0-9]/ { print $3 }' | LC_ALL=C sort -u; }
declared() { LC_ALL=C comm -12 <(strong "$scripted") <(strong "$@"); }
listed() { sed -nE 's/^ +([^ ]+);$/\1/p' "$exports"; }

diff -u --label "$exports" --label 'operations that both hosts define' <(listed) <(declared "$@")
diff -u --label "$exports" --label "symbols that $program shows" <(listed) <(strong --dynamic "$program")
