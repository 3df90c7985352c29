# Completion of mrset(1) for bash: subcommands, options and their values, files by kind, names of sets.
# The target "generate" of CMake writes what stands between "generated" and "end".

# generated: subcommands
_mrset_subcommands='import run shell tabulate sets variables log undo check script diff copy help'
_mrset_topics='import run shell tabulate sets variables log undo check script diff copy DELETE DISPLAY MCGROUP MDGROUP MRSET TABULATE'
# end: subcommands

# The options of a subcommand; of the program itself where there is none.
_mrset_options() {
  case $1 in
    # generated: options
    '') echo --version -h --help ;;
    import) echo -h --help --schema --replace --lock-timeout ;;
    run) echo -h --help -c --command --format --color --width --output --dry-run --stop-on-error --relaxed --lock-timeout ;;
    shell) echo -h --help --width --lock-timeout ;;
    tabulate) echo -h --help --by --weight --base --where --none --net --show --sort --last --confidence --test --minbase --decimals --chart --format --color --width --output --lock-timeout ;;
    sets) echo -h --help --format --color --width --lock-timeout ;;
    variables) echo -h --help --values --format --color --width --lock-timeout ;;
    log) echo -h --help --format --width --lock-timeout ;;
    undo) echo -h --help --to --lock-timeout ;;
    check) echo -h --help --lock-timeout ;;
    script) echo -h --help --output --delete-all --lock-timeout ;;
    diff) echo -h --help --format --lock-timeout ;;
    copy) echo -h --help --skip-incomplete --dry-run --lock-timeout ;;
    # end: options
  esac
}

# What offers values at a place, SUBCOMMAND:OPTION or SUBCOMMAND:NUMBER of an operand, goes to `offer`; fails where no
# value can stand.
_mrset_place() {
  case $1 in
    # generated: places
    import:--schema) offer=(_mrset_files '*.json') ;;
    import:--lock-timeout) offer=(_mrset_nothing) ;;
    import:1) offer=(_mrset_files '*.csv') ;;
    import:2) offer=(_mrset_files '*.mrset') ;;
    run:-c | run:--command) offer=(_mrset_nothing) ;;
    run:--format) offer=(_mrset_words text json html markdown csv xlsx) ;;
    run:--color) offer=(_mrset_words auto always never) ;;
    run:--width) offer=(_mrset_nothing) ;;
    run:--output) offer=(_mrset_files '*') ;;
    run:--lock-timeout) offer=(_mrset_nothing) ;;
    run:1) offer=(_mrset_files '*.mrset') ;;
    run:2) offer=(_mrset_files '*.script') ;;
    shell:--width) offer=(_mrset_nothing) ;;
    shell:--lock-timeout) offer=(_mrset_nothing) ;;
    shell:1) offer=(_mrset_files '*.mrset') ;;
    tabulate:--by) offer=(_mrset_nothing) ;;
    tabulate:--weight) offer=(_mrset_nothing) ;;
    tabulate:--base) offer=(_mrset_words answered asked complete all) ;;
    tabulate:--where) offer=(_mrset_nothing) ;;
    tabulate:--none) offer=(_mrset_nothing) ;;
    tabulate:--net) offer=(_mrset_nothing) ;;
    tabulate:--show) offer=(_mrset_words count cases responses error interval) ;;
    tabulate:--sort) offer=(_mrset_words none descending ascending) ;;
    tabulate:--last) offer=(_mrset_nothing) ;;
    tabulate:--confidence) offer=(_mrset_nothing) ;;
    tabulate:--minbase) offer=(_mrset_nothing) ;;
    tabulate:--decimals) offer=(_mrset_nothing) ;;
    tabulate:--format) offer=(_mrset_words text json html markdown csv xlsx) ;;
    tabulate:--color) offer=(_mrset_words auto always never) ;;
    tabulate:--width) offer=(_mrset_nothing) ;;
    tabulate:--output) offer=(_mrset_files '*') ;;
    tabulate:--lock-timeout) offer=(_mrset_nothing) ;;
    tabulate:1) offer=(_mrset_files '*.mrset') ;;
    tabulate:[0-9]*) offer=(_mrset_sets) ;;
    sets:--format) offer=(_mrset_words text json markdown csv) ;;
    sets:--color) offer=(_mrset_words auto always never) ;;
    sets:--width) offer=(_mrset_nothing) ;;
    sets:--lock-timeout) offer=(_mrset_nothing) ;;
    sets:1) offer=(_mrset_files '*.mrset') ;;
    variables:--format) offer=(_mrset_words text json markdown csv) ;;
    variables:--color) offer=(_mrset_words auto always never) ;;
    variables:--width) offer=(_mrset_nothing) ;;
    variables:--lock-timeout) offer=(_mrset_nothing) ;;
    variables:1) offer=(_mrset_files '*.mrset') ;;
    variables:2) offer=(_mrset_nothing) ;;
    log:--format) offer=(_mrset_words text json) ;;
    log:--width) offer=(_mrset_nothing) ;;
    log:--lock-timeout) offer=(_mrset_nothing) ;;
    log:1) offer=(_mrset_files '*.mrset') ;;
    undo:--to) offer=(_mrset_nothing) ;;
    undo:--lock-timeout) offer=(_mrset_nothing) ;;
    undo:1) offer=(_mrset_files '*.mrset') ;;
    undo:2) offer=(_mrset_nothing) ;;
    check:--lock-timeout) offer=(_mrset_nothing) ;;
    check:1) offer=(_mrset_files '*.mrset') ;;
    script:--output) offer=(_mrset_files '*') ;;
    script:--lock-timeout) offer=(_mrset_nothing) ;;
    script:1) offer=(_mrset_files '*.mrset') ;;
    script:[0-9]*) offer=(_mrset_sets) ;;
    diff:--format) offer=(_mrset_words text json) ;;
    diff:--lock-timeout) offer=(_mrset_nothing) ;;
    diff:1) offer=(_mrset_files '*.mrset') ;;
    diff:2) offer=(_mrset_files '*.mrset') ;;
    copy:--lock-timeout) offer=(_mrset_nothing) ;;
    copy:1) offer=(_mrset_files '*.mrset') ;;
    copy:2) offer=(_mrset_files '*.mrset') ;;
    copy:[0-9]*) offer=(_mrset_sets) ;;
    # end: places
    *) return 1 ;;
  esac
}

# Splits what is typed as the shell would: the words before the one at the cursor go, without their quotes, to `words`;
# the one at the cursor as it is typed to `raw`, without quotes to `current`, its open quote to `quote`.
_mrset_split() {
  local line=${COMP_LINE:0:COMP_POINT} character index
  words=() raw='' current='' quote=''
  for ((index = 0; index < ${#line}; index++)); do
    character=${line:index:1}
    if [[ $character == [[:blank:]] && -z $quote ]]; then
      [[ -z $raw ]] || words+=("$current")
      raw='' current=''
      continue
    fi
    raw+=$character
    if [[ $character == "$quote" ]]; then
      quote=''
    elif [[ $character == [\'\"] && -z $quote ]]; then
      quote=$character
    elif [[ $character == \\ && $quote != \' ]]; then
      ((++index))
      raw+=${line:index:1}
      current+=${line:index:1}
    else
      current+=$character
    fi
  done
}

# Offers those of the words that begin with the current one.
_mrset_words() {
  mapfile -t COMPREPLY < <(compgen -W "$*" -- "$current")
}

# Offers the files whose names the pattern fits, or any where it fits none, and folders.
_mrset_files() {
  local path=${current/#\~\//$HOME/}
  compopt -o filenames 2> /dev/null
  mapfile -t COMPREPLY < <(compgen -f -X "!$1" -- "$path")
  [[ ${#COMPREPLY[@]} -gt 0 ]] || mapfile -t COMPREPLY < <(compgen -f -- "$path")
  mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(compgen -d -- "$path")
}

# Offers the names of the sets of the dataset that is the first operand. Those among the words are left out; any case
# of the letters will do, so that the shell leaves the names alone.
_mrset_sets() {
  local dataset=${operands[0]/#\~\//$HOME/} name
  [[ -e $dataset ]] || dataset=${dataset%@*}
  while IFS= read -r name; do
    [[ ${name,,} == "${current,,}"* && " ${words[*]} " != *" $name "* ]] || continue
    case $quote in
      \') COMPREPLY+=("$name") ;;
      \") COMPREPLY+=("\\$name") ;;
      *) COMPREPLY+=("'$name'") ;;
    esac
  done < <("${program/#\~\//$HOME/}" sets "$dataset" --format json --lock-timeout 0 2> /dev/null < /dev/null |
    grep -o '{"name":"[^"]*"' | cut -d '"' -f 4)
}

_mrset_nothing() { :; }

# Offers values at a place of the subcommand: an option, or the number of an operand. Fails where none can stand there.
_mrset_values() {
  local offer
  _mrset_place "$1" && "${offer[@]}"
}

# The operands among the words after the subcommand go to `operands`.
_mrset_read_operands() {
  local index offer
  operands=()
  for ((index = 2; index < ${#words[@]}; index++)); do
    if [[ ${words[index]} != -?* ]]; then
      operands+=("${words[index]}")
    elif _mrset_place "$subcommand:${words[index]}"; then
      ((++index))
    fi
  done
}

# Readline replaces only what comes after the last "=", ":" or "@" of a word that is not quoted.
_mrset_cut_replies() {
  local last=${COMP_WORDS[COMP_CWORD]} kept index
  [[ $last != [=:@] ]] || last=''
  kept=${raw%"$last"}
  [[ -n $kept && -z $quote ]] || return 0
  for index in "${!COMPREPLY[@]}"; do
    COMPREPLY[index]=${COMPREPLY[index]#"$kept"}
  done
}

_mrset() {
  local words raw current quote operands option program=$1
  COMPREPLY=()
  _mrset_split
  local subcommand=${words[1]-}
  if [[ ${#words[@]} -gt 1 && " $_mrset_subcommands " != *" $subcommand "* ]]; then
    return
  fi
  _mrset_read_operands
  if [[ $current == --*=* ]]; then
    option=${current%%=*} raw=${raw#*=} current=${current#*=}
    _mrset_values "$subcommand:$option"
  elif [[ $current == -* ]]; then
    _mrset_words $(_mrset_options "$subcommand")
  elif [[ ${#words[@]} -eq 1 ]]; then
    _mrset_words $_mrset_subcommands
  elif [[ $subcommand == help ]]; then
    [[ ${#words[@]} -gt 2 ]] || _mrset_words $_mrset_topics
  elif [[ ${words[-1]} != -?* ]] || ! _mrset_values "$subcommand:${words[-1]}"; then
    _mrset_values "$subcommand:$((${#operands[@]} + 1))"
  fi
  _mrset_cut_replies
}

complete -F _mrset mrset
