#!/usr/bin/env bash
# Builds the benchmarks optimised, runs them, and prints each figure as a ratio to its limit.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END'
Usage: scripts/bench.sh [OPTION...]

Builds the preset "bench", runs the benchmarks, and prints a table: what was measured, how it compares
with the least that the work could cost, and whether the goal is met.

  --quick         fewer repetitions
  --json FILE     write the table as JSON, too
  --no-install    install nothing; fail when something is missing
  --help          this text
END
}

repetitions=15
min_time=0.2
json=
install=yes
while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        --quick) repetitions=7; min_time=0.05; shift ;;
        --json)
            [ $# -ge 2 ] || { say "--json needs a file; see scripts/bench.sh --help."; exit 2; }
            json=$2
            shift 2
            ;;
        --no-install) install=no; shift ;;
        *) say "unknown option $1; see scripts/bench.sh --help."; exit 2 ;;
    esac
done

[ "$install" = no ] || install_packages
results=$(mktemp)
trap 'rm -f "$results"' EXIT
start=$PWD
build_preset bench panorel-bench-bus
# Interleaved, so that what else the machine does at one moment falls on all variants alike.
"$root/build/bench/bin/panorel-bench-bus" --benchmark_repetitions="$repetitions" \
    --benchmark_min_time="$min_time" --benchmark_enable_random_interleaving=true \
    --benchmark_report_aggregates_only=true --benchmark_out="$results" \
    --benchmark_out_format=json > /dev/null
cd "$start"
python3 "$root/scripts/bench-table.py" "$results" ${json:+--json "$json"}
