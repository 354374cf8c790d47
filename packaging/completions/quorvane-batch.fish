# Completion of quorvane-batch for fish.

complete -c quorvane-batch -k -x -a '(__fish_complete_suffix .quorvane)'
complete -c quorvane-batch -l sweeps -x -d 'Sweeps to make'
complete -c quorvane-batch -l every -x -d 'Sweeps between rows and between frames'
complete -c quorvane-batch -l output -r -F -d 'Write the document after the run'
complete -c quorvane-batch -l picture -r -F -d 'Write the lattice after the run as PNG'
complete -c quorvane-batch -l populations -r -F -d 'Write the sites of each pixel type as CSV'
complete -c quorvane-batch -l frames -x -a '(__fish_complete_directories)' -d 'Write a numbered PNG every K sweeps'
complete -c quorvane-batch -l scale -x -d 'Pixels a site, 1 to 32'
complete -c quorvane-batch -l trace -d 'Add the trace of each pixel type to pictures'
complete -c quorvane-batch -s h -l help -d 'Print help and exit'
complete -c quorvane-batch -l version -d 'Print the version and exit'
