#!/bin/sh
# The colour analysis of real application icons beside node-vibrant, a widely used dominant-colour
# library, on the very same 128 px icons, and the instructions per icon of ours under callgrind.
# Every STEP-th icon of the benchmark's set is drawn and written as a PNG to a temporary folder
# (COLOUR_BENCH_STEP, default 8; 1 takes them all).
#   sh bench/compare-colours.sh [BUILD]
set -e
BUILD=${1:-build}
cd "$(dirname "$0")/.."
BENCH="$BUILD/bench/bench_colours"
if [ ! -x "$BENCH" ]; then
    echo "no $BENCH: build the target bench_colours"
    exit 0
fi
STEP=${COLOUR_BENCH_STEP:-8}
TMP=$(mktemp -d)
trap 'rm -rf "$TMP"' EXIT INT TERM

"$BENCH" --write-png "$TMP/icons" "$STEP" >/dev/null
set -- $("$BENCH" --time-png "$TMP/icons")
ICONS=$1
OURS_MEDIAN=$2
OURS_P95=$3
if [ -z "$ICONS" ] || [ "$ICONS" -eq 0 ]; then
    echo "no icons drawn: are papirus-icon-theme and adwaita-icon-theme installed?"
    exit 0
fi
echo "icons: $ICONS (every ${STEP}th, drawn at 128 px)"
echo "nimbo:   median $OURS_MEDIAN ms   p95 $OURS_P95 ms per icon"

if command -v valgrind >/dev/null 2>&1; then
    valgrind --tool=callgrind --callgrind-out-file="$TMP/callgrind.out" --toggle-collect='*analyseIcon*' \
        "$BENCH" --analyse-png "$TMP/icons" >/dev/null 2>"$TMP/callgrind.log"
    INSTRUCTIONS=$(sed -n 's/^summary: *\([0-9]*\).*/\1/p; s/^totals: *\([0-9]*\).*/\1/p' "$TMP/callgrind.out" | head -n 1)
    echo "nimbo:   $((INSTRUCTIONS / ICONS)) instructions per icon (callgrind)"
else
    echo "callgrind: valgrind is not installed"
fi

if command -v node >/dev/null 2>&1; then
    if [ ! -d bench/vibrant/node_modules ]; then
        (cd bench/vibrant && npm ci --no-audit --no-fund --silent)
    fi
    node bench/vibrant/time-vibrant.mjs "$TMP/icons" | while read -r NAME COUNT MEDIAN P95; do
        RATIO=$(awk -v a="$MEDIAN" -v b="$OURS_MEDIAN" 'BEGIN { printf "%.1f", a / b }')
        echo "$NAME: median $MEDIAN ms   p95 $P95 ms per icon ($COUNT icons): ${RATIO}x nimbo's median"
    done
else
    echo "node-vibrant: node is not installed"
fi
