# The figures of the five studies, from the tables that their analyses wrote: see the script `figures`.
set terminal svg size 600,420 dynamic background "white" font "DejaVu Sans,13"
set datafile separator ","
set grid linecolor "#dddddd"
set rmargin 3
array colour[5] = ["#1f5fa8", "#2e8b57", "#b8860b", "#c0392b", "#6c3483"]
# Bars as lines: error bars have a white rim around their points, which hides short ones.
bars = "with vectors nohead linewidth 1.5"

set output pictures."ising-binder.svg"
array side[5] = [8, 12, 16, 24, 32]
set key top left Left reverse title "side"
set xlabel "coupling  K  (units of kT)"
set ylabel "Binder cumulant  U"
set format x "%.4f"
set format y "%.3f"
set xrange [0.1886:0.1919]
set xtics 0.001
set arrow 1 from 0.1901926807, graph 0 to 0.1901926807, graph 1 nohead dashtype 2 linecolor "#7f7f7f"
set arrow 2 from graph 0, first 0.61069 to graph 1, first 0.61069 nohead dashtype 2 linecolor "#7f7f7f"
set label 1 "published values" at 0.19023, graph 0.05 textcolor "#7f7f7f"
plot for [n=1:5] tables."ising-binder.csv" index n-1 using 2:($3-$4):(0):(2*$4) @bars linecolor rgb colour[n] notitle, \
     for [n=1:5] tables."ising-binder.csv" index n-1 using 2:3 with linespoints pointtype 7 pointsize 0.5 \
       linewidth 1 linecolor rgb colour[n] title sprintf("%d", side[n])
unset arrow
unset label

set output pictures."contact-process.svg"
set logscale x
set format x "%g"
set format y "%.2f"
set xrange [10:3300]
set autoscale y
set xtics (10, 30, 100, 300, 1000, 3000)
set xlabel "time  t  (sweeps)"
set ylabel "share of active sites × t^{0.4505}"
set key bottom left Left reverse title "death rate"
plot for [n=1:5] tables."contact-process.csv" index n-1 using 2:(($3-$4)*$2**0.4505):(0):(2*$4*$2**0.4505) @bars \
       linecolor rgb colour[n] notitle, \
     for [n=1:5] tables."contact-process.csv" index n-1 using 2:($3*$2**0.4505) with linespoints pointtype 7 \
       pointsize 0.4 linewidth 1 linecolor rgb colour[n] title sprintf("%.4f", 0.5015 + 0.0005 * n)

set output pictures."growth.svg"
set terminal svg size 900,420 dynamic background "white" font "DejaVu Sans,13"
array quench[4] = ["1.2", "1.6", "2.4", "4.0"]
set multiplot layout 1,2
set logscale xy
set xrange [4:40000]
set yrange [7:110]
set xtics (10, 100, 1000, 10000)
set ytics (10, 20, 50, 100)
set format y "%g"
set xlabel "time  t  (sweeps)"
set ylabel "length of domains  (sites)"
set key top right Left reverse title "J  (kT)"
plot for [n=1:4] tables."growth-flips.csv" index 3*n-3 using 1:($0 < 8 || int($0) % 4 == 3 ? $2 : 1/0) \
       with points pointtype 7 pointsize 0.5 linecolor rgb colour[n] title "flips, ".quench[n], \
     tables."growth-swaps.csv" index 0 using 1:($0 < 4 || int($0) % 6 == 5 ? $2 : 1/0) with points pointtype 5 pointsize 0.5 \
       linecolor rgb colour[5] title "swaps, 1.1", \
     [8:60] 13 * (x / 8.)**0.5 with lines dashtype 2 linecolor "#7f7f7f" title "slope 1/2", \
     [1500:30000] 8.5 * (x / 1500.)**(1/3.) with lines dashtype 3 linecolor "#7f7f7f" title "slope 1/3"
unset logscale
set xrange [0:0.12]
set yrange [0.1:0.6]
set xtics 0.02
set ytics 0.1
set format x "%.2f"
set format y "%.1f"
set xlabel "1 / length"
set ylabel "exponent between two times"
unset key
set arrow 1 from graph 0, first 0.5 to graph 1, first 0.5 nohead dashtype 2 linecolor "#7f7f7f"
set arrow 2 from graph 0, first 1/3. to graph 1, first 1/3. nohead dashtype 3 linecolor "#7f7f7f"
plot for [n=1:4] tables."growth-flips.csv" index 3*n-2 using 1:($2-$3):(0):(2*$3) @bars linecolor rgb colour[n], \
     for [n=1:4] tables."growth-flips.csv" index 3*n-2 using 1:2 with points pointtype 7 pointsize 0.5 \
       linecolor rgb colour[n], \
     tables."growth-swaps.csv" index 1 using 1:($2-$3):(0):(2*$3) @bars linecolor rgb colour[5], \
     tables."growth-swaps.csv" index 1 using 1:2 with points pointtype 5 pointsize 0.5 linecolor rgb colour[5], \
     tables."growth-swaps.csv" index 2 using 1:2 with lines linecolor rgb colour[5]
unset multiplot
unset arrow

set output pictures."voters.svg"
set terminal svg size 600,420 dynamic background "white" font "DejaVu Sans,13"
set logscale x
set xrange [8:1200]
set autoscale y
set xtics (10, 20, 50, 100, 200, 500, 1000)
set ytics 0.5
set format x "%g"
set format y "%.1f"
set xlabel "time  t  (sweeps)"
set ylabel "1 / share of unlike neighbours"
set key top left Left reverse notitle
plot tables."voters.csv" using 1:4 with lines linewidth 2 linecolor "#7f7f7f" title "exact", \
     [8:1200] 4/(3*pi) * (log(72*x) + 0.5772157) with lines dashtype 2 linecolor "#c0392b" \
       title "its asymptote, of slope 4 / (3π)", \
     tables."voters.csv" using 1:($2-$3):(0):(2*$3) @bars linecolor rgb colour[1] notitle, \
     tables."voters.csv" using 1:2 with points pointtype 7 pointsize 0.5 linecolor rgb colour[1] \
       title "measured, with standard error"

set output pictures."relaxation.svg"
set logscale xy
set format y "%g"
set xrange [1.8:80]
set yrange [0.4:1500]
set xtics (2, 5, 10, 20, 50)
set ytics (1, 10, 100, 1000)
set xlabel "1 / share of mobile sites"
set ylabel "relaxation time  (sweeps)"
set key top left Left reverse
plot tables."relaxation.csv" using (1/$2):($3-$4):(0):(2*$4) @bars linecolor rgb colour[1] notitle, \
     tables."relaxation.csv" using (1/$2):3 with points pointtype 7 pointsize 0.5 linecolor rgb colour[1] \
       title "measured, with standard error", \
     [8:80] 0.106 * x**2 with lines dashtype 2 linecolor "#7f7f7f" title "∝ c^{-2}", \
     [8:80] 0.0345 * x**2 * log(x) with lines linecolor "#7f7f7f" title "∝ c^{-2} ln(1 / c)"
