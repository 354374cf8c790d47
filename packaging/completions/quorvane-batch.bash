# Completion of quorvane-batch for bash.

_quorvane_batch_paths() { # WORD documents|files|folders
  local word=$1 kind=$2
  compgen -d -- "$word"
  case $kind in
    documents) compgen -f -X '!*.quorvane' -- "$word" ;;
    files) compgen -f -- "$word" ;;
  esac
}

_quorvane_batch() {
  local options='--sweeps --every --seed --set --remake --fill --output --picture --populations --measure --observables --lattices --frames --record --scale --trace --checkpoint --checkpoint-every --continue --replay -h --help --version'
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} kind
  COMPREPLY=()
  case $before in
    --sweeps | --every | --scale | --seed | --set | --remake | --fill | --observables | --checkpoint-every) return ;;
    --picture | --populations | --measure | --lattices | --record | --replay | --checkpoint | --continue) kind=files ;;
    --frames) kind=folders ;;
    *) kind=documents ;;
  esac
  if [[ $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
  else
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(_quorvane_batch_paths "$word" "$kind" | sort -u)
  fi
}
complete -F _quorvane_batch quorvane-batch
