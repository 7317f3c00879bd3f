#!/usr/bin/env bash
# measure.sh [SIMULATE [REPLAY]]: the figures of the chapter on limits, measured. It simulates one species, analyses it
# as it should be done and then with one thing wrong at a time, and prints the tables. SIMULATE and REPLAY are
# halvern-simulate and halvern-replay, from PATH if they are not given. It takes some ten seconds and leaves nothing behind.
# shellcheck disable=SC2046,SC2086  # results and limits are lists of words
set -euo pipefail
export LC_ALL=C
simulate=$(realpath "$(command -v "${1:-halvern-simulate}")")
replay=$(realpath "$(command -v "${2:-halvern-replay}")")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# The experiment from which all others differ in one thing: 66 kDa and 4.3 S in water, 16 scans without noise, meniscus
# at 6 cm, boundary at 6.45 cm half-way through.
rpm=50000
species="concentration:1 s:4.3 mass:66"
times="from:5215 to:7055 scans:16"

# make FOLDER [--KEY VALUE ...]: the scans of $species at $times
make() {
    local folder=$1
    shift
    "$simulate" --output "$folder" --meniscus 6.0 --base 7.2 --radial-step 0.003 --radius-scatter 0 --cells 2500 \
        --tolerance 1e-7 --list all.LST --species "$species" --speed "rpm:$rpm $times" "$@" >/dev/null
}

# analyse FOLDER MENISCUS LEVEL LOW HIGH: from the list to the averages. One line: mass limit, largest average dc/dt,
# then Sw and Cp of g^(s*), Sn, Sw, its error, Sz and Co of g(s*), then s* and half-height width of the peak of g(s*).
analyse() {
    local folder=$1
    rm -f "$folder/g.txt"
    cat >"$folder/a.session" <<SCRIPT
click GetListNow
choose all.LST
click Set_MenManually
type Text1 $2
click IsOK
click KeldIt
click SetKeldZero
print plot
mouse left+ctrl @50 $3
click Command1
click DoGofS
mouse left+ctrl $4 0
mouse right+ctrl $5 0
click Command1
print report
click KeldOutGofS
choose g.txt
SCRIPT
    (cd "$folder" && "$replay" a.session >printed.txt)
    awk '
        FNR == 1 { file++ }
        file == 1 && /kDa/ { limit = $(NF - 1) }
        file == 1 && $2 == "PlotYMax" { highest = $3 }
        file == 2 && /Interacting/ { part++ }
        file == 2 && $2 == "=" { value[part, $1] = $3; error[part, $1] = $5 }
        file == 2 && rows { n++; s[n] = $1; g[n] = $2; if ($2 > top) { top = $2; at = n } }
        file == 2 && /svedbergs\)/ { rows = 1 }
        function crossing(i, j) { return s[i] + (s[j] - s[i]) * (top / 2 - g[i]) / (g[j] - g[i]) }
        END {
            for (low = at; low > 1 && g[low] > top / 2; low--);
            for (high = at; high < n && g[high] > top / 2; high++);
            peak = s[at]
            if (at > 1 && at < n) {
                bend = g[at - 1] - 2 * g[at] + g[at + 1]
                if (bend < 0) peak += (s[2] - s[1]) * 0.5 * (g[at - 1] - g[at + 1]) / bend
            }
            printf "%s %s %s %s %s %s %s %s %s %.3f %.3f\n", limit, highest, value[1, "Sw"], value[1, "Cp"],
                value[2, "Sn"], value[2, "Sw"], error[2, "Sw"], value[2, "Sz"], value[2, "Co"], peak,
                crossing(high, high - 1) - crossing(low, low + 1)
        }' "$folder/printed.txt" "$folder/g.txt"
}

# shift_omega2t FROM INTO SECONDS: the same scans with clocks that are so far ahead
shift_omega2t() {
    mkdir -p "$2"
    cp "$1"/*.LST "$2"
    for scan in "$1"/*.RA1; do
        awk -v rpm=$rpm -v seconds="$3" '
            FNR == 2 {
                omega = rpm * 8 * atan2(1, 1) / 60
                text = sprintf("%.5E", substr($0, 23, 10) + omega * omega * seconds)
                sub(/E\+/, "E", text)
                $0 = substr($0, 1, 22) sprintf("%10s", text) substr($0, 33)
            }
            { print }' "$scan" >"$2/$(basename "$scan")"
    done
}

# rename_speed FROM INTO RPM: the same scans with another speed in their heads
rename_speed() {
    mkdir -p "$2"
    cp "$1"/*.LST "$2"
    for scan in "$1"/*.RA1; do
        awk -v rpm="$3" 'FNR == 2 { $0 = substr($0, 1, 8) sprintf("%6d", rpm) substr($0, 15) } { print }' "$scan" \
            >"$2/$(basename "$scan")"
    done
}

# row LABEL RESULTS...: Sw, Sz, Co, peak and width, and how far Sw and Co are from the first row's
first_sw='' first_co=''
row() {
    local label=$1
    shift
    [ -n "$first_sw" ] || { first_sw=$6 first_co=$9; }
    awk -v l="$label" -v sw="$6" -v sz="$8" -v co="$9" -v peak="${10}" -v width="${11}" -v sw0="$first_sw" \
        -v co0="$first_co" 'BEGIN {
            printf "| %s | %s | %+.2f | %s | %s | %+.2f | %s | %s |\n", l, sw, 100 * (sw / sw0 - 1), sz, co,
                100 * (co / co0 - 1), peak, width }'
}
table() {
    first_sw='' first_co=''
    printf '\n%s\n\n' "$1"
    echo "| $2 | Sw, S | change, % | Sz, S | Co | change, % | peak, S | width, S |"
    echo "|---|---:|---:|---:|---:|---:|---:|---:|"
}

low=1.5 high=8
make reference
row_of() { row "$1" $(analyse "${@:2}"); }

table "Meniscus (true: 6.000 cm)" "meniscus, cm"
for m in 6.000 5.980 5.990 5.995 6.005 6.010 6.020; do
    row_of $m reference $m 0 $low $high
done

table "Zero level, in percent of the largest average dc/dt" "level, %"
highest=$(analyse reference 6.0 0 $low $high | cut -d' ' -f2)
for percent in 0 -5 -2 -1 1 2 5; do
    level=$(awk -v h="$highest" -v p=$percent 'BEGIN { printf "%.8g", h * p / 100 }')
    row_of "$percent" reference 6.0 "$level" $low $high
done

table "Limits of s*, S" "from, to"
for limits in "1.5 8" "2 8" "2.5 6.5" "3 6" "3.5 5.5" "1.5 10" "0.5 12"; do
    set -- $limits
    row_of "$1, $2" reference 6.0 0 "$1" "$2"
done

table "Clock: seconds by which omega squared t is ahead" "s"
for seconds in 0 -120 -60 -30 30 60 120; do
    shift_omega2t reference clock $seconds
    row_of $seconds clock 6.0 0 $low $high
done

table "Rotor speed in the heads of the scans (true: 50000 rpm), omega squared t as it was" "rpm"
for other in 50000 49500 50500; do
    rename_speed reference speed $other
    row_of $other speed 6.0 0 $low $high
done

# Each row has a run of its own, with the boundary at 6.45 cm half-way and the same share of time covered.
echo
echo "Mass, globular proteins: s = 4.3 S (M / 66 kDa)^(2/3); time covered 0.3 of the mean time"
echo
echo "| M, kDa | s, S | Sw, S | off, % | Co | off, % | peak, S | off, % | width / s |"
echo "|---:|---:|---:|---:|---:|---:|---:|---:|---:|"
for kda in 660 200 66 30 15 8 4; do
    read -r s t1 t2 l h < <(awk -v m=$kda -v rpm=$rpm 'BEGIN {
        s = 4.3 * exp(log(m / 66) * 2 / 3); omega = rpm * 8 * atan2(1, 1) / 60
        t = log(6.45 / 6) / (s * 1e-13 * omega * omega)
        printf "%.4f %.1f %.1f %.4f %.4f\n", s, 0.85 * t, 1.15 * t, 0.15 * s, 2 * s }')
    species="concentration:1 s:$s mass:$kda" times="from:$t1 to:$t2 scans:16" make mass
    set -- $(analyse mass 6.0 0 "$l" "$h")
    awk -v kda=$kda -v s="$s" -v sw="$6" -v co="$9" -v peak="${10}" -v w="${11}" 'BEGIN {
        printf "| %s | %.3f | %s | %+.1f | %s | %+.1f | %s | %+.1f | %.2f |\n", kda, s, sw, 100 * (sw / s - 1), co,
            100 * (co - 1), peak, 100 * (peak / s - 1), w / s }'
    rm -rf mass
done

echo
echo "Time covered: 16 scans about the same mean time, 66 kDa, 4.3 S"
echo
echo "| time covered / mean time | mass limit of the report, kDa | four times that | Sw, S | Co | peak, S | width, S | broader, % |"
echo "|---:|---:|---:|---:|---:|---:|---:|---:|"
narrowest=
for share in 0.05 0.1 0.2 0.3 0.4 0.6 0.8 1.0; do
    read -r t1 t2 < <(awk -v x=$share 'BEGIN { printf "%.1f %.1f\n", 6135 * (1 - x / 2), 6135 * (1 + x / 2) }')
    times="from:$t1 to:$t2 scans:16" make time
    set -- $(analyse time 6.0 0 $low $high)
    : "${narrowest:=${11}}"
    awk -v x=$share -v m="$1" -v sw="$6" -v co="$9" -v peak="${10}" -v w="${11}" -v w0="$narrowest" 'BEGIN {
        printf "| %s | %s | %d | %s | %s | %s | %s | %+.1f |\n", x, m, 4 * m, sw, co, peak, w, 100 * (w / w0 - 1) }'
    rm -rf time
done

# The mass limit of the report is (80 / (x krpm))^2 kDa for a share of time x. What happens at it, and at twice that time.
echo
echo "At the mass limit: how much broader the peak is than with next to no time covered"
echo
echo "| M, kDa | s, S | width / s | time covered at the limit | broader, % | twice that time | broader, % |"
echo "|---:|---:|---:|---:|---:|---:|---:|"
width_at() {  # KDA S SHARE
    local t1 t2
    read -r t1 t2 < <(awk -v s="$2" -v x="$3" -v rpm=$rpm 'BEGIN {
        omega = rpm * 8 * atan2(1, 1) / 60
        t = log(6.45 / 6) / (s * 1e-13 * omega * omega)
        printf "%.2f %.2f\n", t * (1 - x / 2), t * (1 + x / 2) }')
    species="concentration:1 s:$2 mass:$1" times="from:$t1 to:$t2 scans:16" make limit
    analyse limit 6.0 0 "$(awk -v s="$2" 'BEGIN { print 0.35 * s }')" "$(awk -v s="$2" 'BEGIN { print 1.86 * s }')" |
        cut -d' ' -f11
    rm -rf limit
}
for kda in 30 66 200 660; do
    s=$(awk -v m=$kda 'BEGIN { printf "%.4f", 4.3 * exp(log(m / 66) * 2 / 3) }')
    x=$(awk -v m=$kda -v rpm=$rpm 'BEGIN { printf "%.4f", 80000 / (sqrt(m) * rpm) }')
    x2=$(awk -v x="$x" 'BEGIN { printf "%.4f", 2 * x }')
    awk -v m=$kda -v s="$s" -v x="$x" -v w0="$(width_at $kda "$s" 0.03)" -v w1="$(width_at $kda "$s" "$x")" \
        -v w2="$(width_at $kda "$s" "$x2")" 'BEGIN {
        printf "| %s | %.3f | %.2f | %.3f | %+.1f | %.3f | %+.1f |\n", m, s, w0 / s, x, 100 * (w1 / w0 - 1), 2 * x,
            100 * (w2 / w0 - 1) }'
done

echo
echo "Errors: noise of 0.005, twenty runs that differ in nothing else"
echo
echo "| limits of s*, S | mean Sw, S | scatter of Sw, S | error shown, S | mean Co | scatter of Co |"
echo "|---|---:|---:|---:|---:|---:|"
for seed in $(seq 20); do
    make noise$seed --noise 0.005 --seed "$seed" --cells 1500 --tolerance 1e-6
done
for limits in "1.5 8" "2.5 6.5"; do
    set -- $limits
    for seed in $(seq 20); do
        analyse noise$seed 6.0 0 "$1" "$2"
    done | awk -v limits="$1 to $2" '
        { n++; sw += $6; sw2 += $6 * $6; e += $7; co += $9; co2 += $9 * $9 }
        function scatter(sum, squares) { return sqrt((squares - sum * sum / n) / (n - 1)) }
        END { printf "| %s | %.3f | %.4f | %.4f | %.3f | %.4f |\n", limits, sw / n, scatter(sw, sw2), e / n, co / n,
                  scatter(co, co2) }'
done

# Viscosity of water: Kestin, Sokolov and Wakeham 1978; density: Kell 1975.
echo
echo "Temperature: s at T over s at 20 C, in water, partial specific volume 0.735 mL/g"
echo
echo "| T, C | viscosity, mPa s | density, g/mL | s(T) / s(20) |"
echo "|---:|---:|---:|---:|"
awk 'function viscosity(t,  d) {
         d = 20 - t
         return 1.002 * exp(log(10) * d / (t + 96) * (1.2364 - 1.37e-3 * d + 5.7e-6 * d * d))
     }
     function density(t) {
         return (999.83952 + 16.945176 * t - 7.9870401e-3 * t^2 - 46.170461e-6 * t^3 + 105.56302e-9 * t^4 \
                 - 280.54253e-12 * t^5) / (1 + 16.87985e-3 * t) / 1000
     }
     BEGIN {
         n = split("4 10 15 19 19.5 20 20.5 21 25 30 37", at, " ")
         for (i = 1; i <= n; i++) {
             t = at[i]
             printf "| %s | %.4f | %.5f | %.4f |\n", t, viscosity(t), density(t),
                 (1 - 0.735 * density(t)) / viscosity(t) * viscosity(20) / (1 - 0.735 * density(20))
         }
     }'
