# Completion of quorvane-study for bash.

_quorvane_study_options() { # COMMAND
  case $1 in
    run) echo '--results -j --jobs --shard' ;;
    command) echo '--run' ;;
    slurm) echo '--results --tasks' ;;
    check) echo '--again' ;;
  esac
  echo '-h --help'
}

_quorvane_study() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
  COMPREPLY=()
  if [ "$COMP_CWORD" = 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W 'run command status table report check slurm -h --help --version' -- "$word")
    return
  fi
  case $before in
    --shard | --run | --tasks | --again | --jobs | -j) return ;;
  esac
  if [[ $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_quorvane_study_options "$command")" -- "$word")
    return
  fi
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(
    compgen -d -- "$word"
    case $before:$command in
      --results:* | *:status | *:table | *:report | *:check) ;;
      *) compgen -f -X '!*.toml' -- "$word" ;;
    esac
  )
}
complete -F _quorvane_study quorvane-study
