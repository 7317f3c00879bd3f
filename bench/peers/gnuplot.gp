# gnuplot -e "points='FOLDER/plot.xy'" gnuplot.gp: the full plot, a line with points for each scan. Reading them counts.
set print "-"
unset key
set xlabel "Radius (cm)"
set ylabel "Fringes"
set yrange [-0.06:3.06]
do for [row in "repaint zoom"] {
    low = row eq "zoom" ? 6.575 - 0.15625 : 5.95
    high = row eq "zoom" ? 6.575 + 0.15625 : 7.2
    set xrange [low:high]
    do for [size in "665,500 1250,700"] {
        eval "set terminal png size ".size
        set output "/dev/null"
        start = time(0.0)
        plot for [k=0:499] points binary format='%float%float' record=2048 skip=k*2048*8 using 1:2 \
            with linespoints pointtype 7 pointsize 0.2 linecolor k%10+1
        unset output
        comma = strstrt(size, ",")
        print sprintf("%s %sx%s/500/gnuplot %.3f", row, size[1:comma-1], size[comma+1:*], (time(0.0) - start) * 1000)
    }
}
