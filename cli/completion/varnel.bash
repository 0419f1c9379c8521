# bash completion of varnel
_varnel() {
  local word="${COMP_WORDS[COMP_CWORD]}" before="${COMP_WORDS[COMP_CWORD - 1]}" command="" i
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; i++)); do
    case "${COMP_WORDS[i]}" in
      help | parse | barcode | element | soundex)
        command="${COMP_WORDS[i]}"
        break
        ;;
    esac
  done
  # --format=csv is one word, or three where COMP_WORDBREAKS holds the sign, as it does by default.
  local written=""
  if [[ "$word" == --*=* ]]; then
    before="${word%%=*}" written="${word%%=*}="
    word="${word#*=}"
  elif [[ "$word" == "=" ]]; then
    word=""
  elif [[ "$before" == "=" ]]; then
    before="${COMP_WORDS[COMP_CWORD - 2]}"
  fi
  case "$before" in
    --format)
      COMPREPLY=($(compgen -P "$written" -W "json table csv" -- "$word"))
      return
      ;;
    --each)
      COMPREPLY=($(compgen -P "$written" -W "line block zone" -- "$word"))
      return
      ;;
  esac
  case "$command" in
    parse | barcode)
      if [[ "$word" == -* ]]; then
        local options="--each --format --help --slots --verbose --version --with-source"
        [[ "$command" == barcode ]] && options="--format --help --info --slots --version --with-source"
        COMPREPLY=($(compgen -W "$options" -- "$word"))
      else
        compopt -o filenames 2>/dev/null
        local IFS=$'\n'
        COMPREPLY=($(compgen -f -- "$word"))
      fi
      ;;
    element | soundex)
      COMPREPLY=($(compgen -W "--format --help --version" -- "$word"))
      ;;
    help)
      COMPREPLY=($(compgen -W "help parse barcode element soundex --help --version" -- "$word"))
      ;;
    *)
      COMPREPLY=($(compgen -W "help parse barcode element soundex --help --version" -- "$word"))
      ;;
  esac
}
complete -F _varnel varnel
