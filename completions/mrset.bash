# Completion of mrset(1) for bash: subcommands, options and their values, files by kind, names of sets.

_mrset_subcommands='import run shell sets variables log undo check script diff copy'

# The options of a subcommand; of the program itself where there is none.
_mrset_options() {
  case $1 in
    '') echo '--help -h --version' && return ;;
    import) echo --schema --replace ;;
    run) echo --command -c --format --color --width --output --dry-run --stop-on-error --relaxed ;;
    sets | variables) echo --format --color --width ;;
    log) echo --format --width ;;
    shell) echo --width ;;
    diff) echo --format ;;
    undo) echo --to ;;
    script) echo --output --delete-all ;;
    copy) echo --skip-incomplete --dry-run ;;
  esac
  echo --help -h --lock-timeout
}

_mrset_formats() {
  case $1 in
    run) echo text json html markdown csv ;;
    sets | variables) echo text json markdown csv ;;
    log | diff) echo text json ;;
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

# Offers the names of a dataset's sets that are not among the words, in any case, so that the shell leaves them alone.
_mrset_sets() {
  local program=$1 dataset=${2/#\~\//$HOME/} name
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

# Offers values of an option; fails where it takes none, or nobody gave it.
_mrset_value() {
  case $2 in
    --format) _mrset_words "$(_mrset_formats "$1")" ;;
    --color) _mrset_words auto always never ;;
    --schema) _mrset_files '*.json' ;;
    --output) _mrset_files '*' ;;
    --to | --width | --lock-timeout | -c | --command) ;;
    *) return 1 ;;
  esac
}

# Offers what can stand as an operand of the subcommand, behind those that are given.
_mrset_operand() {
  local program=$1 subcommand=$2 given=("${@:3}")
  case $subcommand:${#given[@]} in
    import:0) _mrset_files '*.csv' ;;
    run:1) _mrset_files '*.script' ;;
    import:1 | diff:[01] | copy:[01] | [!i]*:0) _mrset_files '*.mrset' ;;
    script:*) _mrset_sets "$program" "${given[0]}" ;;
    copy:*) _mrset_sets "$program" "${given[0]}" ;;
  esac
}

# The operands among the words behind the subcommand go to `operands`.
_mrset_read_operands() {
  local index
  operands=()
  for ((index = 2; index < ${#words[@]}; index++)); do
    case ${words[index]} in
      --format | --color | --width | --schema | --output | --to | --lock-timeout | -c | --command) ((++index)) ;;
      -?*) ;;
      *) operands+=("${words[index]}") ;;
    esac
  done
}

# Readline replaces only what stands behind the last "=", ":" or "@" of a word that is not quoted.
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
  local words raw current quote operands option
  COMPREPLY=()
  _mrset_split
  local subcommand=${words[1]-}
  if [[ ${#words[@]} -gt 1 && " $_mrset_subcommands " != *" $subcommand "* ]]; then
    return
  fi
  if [[ $current == --*=* ]]; then
    option=${current%%=*} raw=${raw#*=} current=${current#*=}
    _mrset_value "$subcommand" "$option"
  elif [[ $current == -* ]]; then
    _mrset_words "$(_mrset_options "$subcommand")"
  elif [[ ${#words[@]} -eq 1 ]]; then
    _mrset_words "$_mrset_subcommands"
  elif ! _mrset_value "$subcommand" "${words[-1]}"; then
    _mrset_read_operands
    _mrset_operand "$1" "$subcommand" "${operands[@]}"
  fi
  _mrset_cut_replies
}

complete -F _mrset mrset
