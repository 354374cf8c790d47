# energy-curve.csv and the table `curve` of exact values as energy-curve.svg: above the energies, below what they
# differ by, where their error bars are large enough to be seen.
set terminal svg size 640,560 dynamic background "white" font "DejaVu Sans,13"
set output "energy-curve.svg"
set datafile separator ","
rows = "energy-curve.csv"
bars = 'linewidth 1.5 linecolor "#1f5fa8"'
points = 'pointtype 7 pointsize 0.5 linecolor "#1f5fa8"'
set multiplot
set xrange [0:0.42]
set xtics 0.05
set lmargin 10
set rmargin 3
set grid linecolor "#dddddd"

set size 1,0.62
set origin 0,0.38
set bmargin 0.5
set format x ""
set format y "%.2f"
set ylabel "energy per site  (units of K)"
set key top right
# Bars as lines: error bars have a white rim around their points, which hides short ones.
plot curve using 1:2 with lines linewidth 2 linecolor "#7f7f7f" title "exact, 4 × 4 sites", \
     rows using 1:($2-$3):(0):(2*$3) skip 1 with vectors nohead @bars notitle, \
     rows using 1:2 skip 1 with points @points title "measured, with standard error"

set size 1,0.38
set origin 0,0
set tmargin 0.5
set bmargin 3.5
set format x "%.2f"
set xlabel "coupling  K = J(AB) / 4  (units of kT)"
set ylabel "measured − exact"
set ytics 0.02
unset key
plot 0 with lines linewidth 2 linecolor "#7f7f7f", \
     rows using 1:($2-$5-$3):(0):(2*$3) skip 1 with vectors nohead @bars, \
     rows using 1:($2-$5) skip 1 with points @points
