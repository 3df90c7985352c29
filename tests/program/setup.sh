# What every transcript begins with: the program as `mrset`, the example survey in $EXAMPLES, real surveys in $SURVEYS.
PATH="$(dirname "$MRSET_PROGRAM"):$PATH"
EXAMPLES="$TESTDIR/../../examples"
SURVEYS="${MRSET_SURVEYS:-$TESTDIR/../../../shared/data}"
unset COLUMNS MRSET_MODULE
export LC_ALL=C.UTF-8

# breakfast DATASET: the example survey as a dataset.
breakfast() {
  mrset import --schema "$EXAMPLES/breakfast.schema.json" "$EXAMPLES/breakfast.csv" "$1" 2> /dev/null
}

# small DATASET: a survey small enough to be seen whole: numeric q1 to q3, n1; strings t1, t2.
small() {
  printf 'q1,q2,q3,n1,t1,t2\n1,0,1,7,red,blue\n0,1,0,8,,green\n' > small.csv
  cat > small.schema.json <<'JSON'
{"fields": [
  {"name": "q1", "type": "integer", "title": "Tea", "categories": [{"value": 0, "label": "No"}, {"value": 1, "label": "Drinks tea"}]},
  {"name": "q2", "type": "integer", "title": "Coffee", "categories": [{"value": 0, "label": "No"}, {"value": 1, "label": "Drinks coffee"}]},
  {"name": "q3", "type": "integer", "categories": [{"value": 1, "label": "Drinks milk"}]},
  {"name": "n1", "type": "number"},
  {"name": "t1", "type": "string", "constraints": {"maxLength": 8}, "title": "First colour"},
  {"name": "t2", "type": "string", "constraints": {"maxLength": 5}}]}
JSON
  mrset import --schema small.schema.json small.csv "$1" 2> /dev/null
  rm small.csv small.schema.json
}

# A filter that hides the line numbers of assertion reports, and what compilers spell differently in signatures. A
# pipe's exit status is that of the program before it.
set -o pipefail
numberless() { sed -E '/Assertion/{s/(mrset[a-z]*\.cpp):[0-9]+:/\1:LINE:/; s/ (\\?&(amp;)?)([,)])/\1\3/g;}'; }
