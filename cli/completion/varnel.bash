# bash completion of varnel
_varnel() {
  local word="${COMP_WORDS[COMP_CWORD]}" before="${COMP_WORDS[COMP_CWORD - 1]}" command="" i
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; i++)); do
    case "${COMP_WORDS[i]}" in
      help | parse | inspect | barcode | compose | specimen | element | soundex)
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
      local formats="json table csv"
      [[ "$command" != compose && "$command" != specimen ]] || formats="text json"
      COMPREPLY=($(compgen -P "$written" -W "$formats" -- "$word"))
      return
      ;;
    --layout)
      COMPREPLY=($(compgen -P "$written" -W "TD1 TD2 TD3 MRV-A MRV-B" -- "$word"))
      return
      ;;
    --count | --jobs | --seed)
      return
      ;;
    --repair)
      COMPREPLY=($(compgen -P "$written" -W "off columns digits" -- "$word"))
      return
      ;;
    --each)
      COMPREPLY=($(compgen -P "$written" -W "line block zone" -- "$word"))
      return
      ;;
  esac
  case "$command" in
    parse | inspect | barcode)
      if [[ "$word" == -* ]]; then
        local options="--each --format --help --jobs --slots --verbose --version --with-source"
        [[ "$command" == inspect ]] && options="--date --each --format --help --jobs --looks --repair --verbose --version --with-source"
        [[ "$command" == barcode ]] && options="--format --help --info --slots --version --with-source"
        COMPREPLY=($(compgen -W "$options" -- "$word"))
      else
        compopt -o filenames 2>/dev/null
        local IFS=$'\n'
        COMPREPLY=($(compgen -f -- "$word"))
      fi
      ;;
    compose)
      if [[ "$word" == -* ]]; then
        COMPREPLY=($(compgen -W "--format --help --version" -- "$word"))
      else
        compopt -o filenames 2>/dev/null
        local IFS=$'\n'
        COMPREPLY=($(compgen -f -- "$word"))
      fi
      ;;
    specimen)
      COMPREPLY=($(compgen -W "--count --format --help --layout --seed --version" -- "$word"))
      ;;
    element | soundex)
      COMPREPLY=($(compgen -W "--format --help --version" -- "$word"))
      ;;
    help)
      COMPREPLY=($(compgen -W "help parse inspect barcode compose specimen element soundex --help --version" -- "$word"))
      ;;
    *)
      COMPREPLY=($(compgen -W "help parse inspect barcode compose specimen element soundex --help --version" -- "$word"))
      ;;
  esac
}
complete -F _varnel varnel
