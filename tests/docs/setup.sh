# Before the first example of a document: the program as `mrset`, and a copy of examples/ to work in.
PATH="$(dirname "$MRSET_PROGRAM"):$PATH"
unset COLUMNS NO_COLOR MRSET_MODULE
export LC_ALL=C.UTF-8
cp -r "$EXAMPLES/." .
