# Completion of the command steprt for bash.
_steprt() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local options
  COMPREPLY=()
  if [ "$COMP_CWORD" = 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W 'check compile convert stat --help --version' -- "$word")
    return
  fi
  case ${COMP_WORDS[1]} in
    check) options='--help --json --most --schema' ;;
    compile) options='--entities --first-type --help --module --namespace --out --parts' ;;
    convert) options='--help --json --schema --to' ;;
    stat) options='--help --json' ;;
    *) return ;;
  esac
  case $before in
    --most | --namespace | --entities | --parts | --first-type) ;;
    --to) mapfile -t COMPREPLY < <(compgen -W 'native standard xml' -- "$word") ;;
    --out) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
    *)
      if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
      else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
      fi
      ;;
  esac
}
complete -o filenames -F _steprt steprt
