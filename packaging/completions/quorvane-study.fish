# Completion of quorvane-study for fish.

set -l commands run command status table report check slurm
complete -c quorvane-study -f
complete -c quorvane-study -s h -l help -d 'Print help and exit'
complete -c quorvane-study -n "not __fish_seen_subcommand_from $commands" -l version -d 'Print the version and exit'
complete -c quorvane-study -n "not __fish_seen_subcommand_from $commands" -a run -d 'Make the runs that are left, and the tables'
complete -c quorvane-study -n "not __fish_seen_subcommand_from $commands" -a command -d 'Print the call that makes a run by hand'
complete -c quorvane-study -n "not __fish_seen_subcommand_from $commands" -a status -d 'Tell what is made and left'
complete -c quorvane-study -n "not __fish_seen_subcommand_from $commands" -a table -d 'Make the tables'
complete -c quorvane-study -n "not __fish_seen_subcommand_from $commands" -a report -d 'Make the tables, and a page with figures'
complete -c quorvane-study -n "not __fish_seen_subcommand_from $commands" -a check -d 'Read every record and make some runs again'
complete -c quorvane-study -n "not __fish_seen_subcommand_from $commands" -a slurm -d 'Print a script for Slurm'
complete -c quorvane-study -n '__fish_seen_subcommand_from run command slurm' -k -a '(__fish_complete_suffix .toml)'
complete -c quorvane-study -n '__fish_seen_subcommand_from status table report check' -a '(__fish_complete_directories)'
complete -c quorvane-study -n '__fish_seen_subcommand_from run slurm' -l results -x -a '(__fish_complete_directories)' -d 'The folder of the results'
complete -c quorvane-study -n '__fish_seen_subcommand_from run' -s j -l jobs -x -d 'Worker processes'
complete -c quorvane-study -n '__fish_seen_subcommand_from run' -l shard -x -d 'Only part K of N'
complete -c quorvane-study -n '__fish_seen_subcommand_from command' -l run -x -d 'The number of the run'
complete -c quorvane-study -n '__fish_seen_subcommand_from slurm' -l tasks -x -d 'Tasks of the array'
complete -c quorvane-study -n '__fish_seen_subcommand_from check' -l again -x -d 'Runs to make again'
