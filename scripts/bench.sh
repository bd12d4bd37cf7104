#!/usr/bin/env bash
# Builds the benchmarks optimised, runs them, and prints each figure beside its limit.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END'
Usage: scripts/bench.sh [OPTION...]

Builds the preset "bench", runs the benchmarks, and prints tables: what was measured, how it
compares with the least that the work could cost, and whether the goal is met. Takes six minutes or
more after the build. A goal that is missed is no failure; what could not be measured is one.

  --quick         fewer and shorter repetitions: below two minutes
  --json FILE     write the tables as JSON, too
  --plots DIR     draw how costs grow, as SVG files (needs gnuplot)
  --results DIR   keep what the programs wrote: results of Google Benchmark as JSON, and logs
  --no-install    install nothing; fail when something is missing
  --help          this text
END
}

repetitions=15
min_time=0.2
time_limit=900
json='' plots='' results='' quick='' install=yes
while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        --quick) quick=yes repetitions=5; min_time=0.05; time_limit=120; shift ;;
        --json) value_of "$@"; json=$(absolute "$2"); shift 2 ;;
        --plots) value_of "$@"; plots=$(absolute "$2"); shift 2 ;;
        --results) value_of "$@"; results=$(absolute "$2"); shift 2 ;;
        --no-install) install=no; shift ;;
        *) say "unknown option $1; see scripts/bench.sh --help."; exit 2 ;;
    esac
done

# The processors' work of the next two seconds, in percent of what they could do.
busy_percent() {
    local before after
    before=$(sed 1q /proc/stat)
    sleep 2
    after=$(sed 1q /proc/stat)
    # cpu user nice system idle iowait irq softirq steal
    printf '%s\n' "$before" "$after" | awk '
        { total = 0; for (i = 2; i <= 9; ++i) total += $i; idle = $5 + $6 }
        NR == 1 { total_before = total; idle_before = idle }
        END { total -= total_before; idle -= idle_before
              printf "%.0f", total ? 100 * (total - idle) / total : 0 }'
}

# One line about what is measured on; its argument is the load before the build.
machine() {
    local build="$root/build/bench" processor compiler qt
    processor=$(sed -n '/^model name/{s/^[^:]*: *//p;q}' /proc/cpuinfo)
    compiler=$(sed -n 's/^set(CMAKE_CXX_COMPILER_\(ID\|VERSION\) "\(.*\)")$/\2/p' \
        "$build"/CMakeFiles/*/CMakeCXXCompiler.cmake)
    qt=$(sed -n 's/^Qt5Core_DIR:[A-Z]*=//p' "$build/CMakeCache.txt")/Qt5CoreConfigVersion.cmake
    qt=$(sed -n 's/^set(PACKAGE_VERSION \(.*\))$/\1/p' "$qt")
    printf '%s, %s cores; %s; Qt %s; %s; %s; load average %s' \
        "${processor:-$(uname -m)}" "$(nproc)" "${compiler/$'\n'/ }" "$qt" "$(uname -sr | cut -d. -f1,2)" \
        "$(LC_ALL=C date '+%-d %B %Y')" "$1"
}

failed=0
# measure NAME PROGRAM [OPTION...]: runs one of the programs, apart.
measure() {
    local name=$1 program=panorel-bench-$2 status=0 begun=$SECONDS
    shift 2
    local file="$results/$name.json" log="$results/$name.log"
    say "measuring: $name"
    rm -f "$file"
    # Interleaved, so that what else the machine does at one moment falls on all variants alike.
    run_apart "$time_limit" "$root/build/bench/bin/$program" "$@" \
        --benchmark_repetitions="$repetitions" --benchmark_min_time="$min_time" \
        --benchmark_enable_random_interleaving=true --benchmark_display_aggregates_only=true \
        --benchmark_out="$file" --benchmark_out_format=json > "$log" 2>&1 || status=$?
    [ "$status" -ne 0 ] || return 0
    failed=1
    if [ $((SECONDS - begun)) -ge "$time_limit" ]; then
        say "$program took more than $time_limit seconds and was stopped. Last words:"
    else
        say "$program failed with status $status. Last words:"
    fi
    tail -n 5 "$log" >&2
}

load=$(cut -d ' ' -f 1-3 /proc/loadavg)
[ "$install" = no ] || install_packages ${plots:+gnuplot-nox}
[ -z "$plots" ] || command -v gnuplot > /dev/null \
    || fail "--plots needs gnuplot (Debian package: gnuplot-nox)."
programs=(bus messages start)
build_preset bench "${programs[@]/#/panorel-bench-}" panorel-bench-page
need_runtime_dir
handle_root

make_work_folder "$root/build/bench/run"
results=${results:-$work/results}
mkdir -p "$results" "$(dirname "${json:-$results}")"
machine=$(machine "$load")
busy=$(busy_percent)
if [ "$busy" -gt 10 ]; then
    say "the machine is busy with something else ($busy % of its processors): expect odd figures."
    machine="$machine; busy: $busy %"
fi
files=()
for program in "${programs[@]}"; do
    measure "$program" "$program"
done
# Once the C library has had 10 MB to give back, it keeps more memory at hand: they come apart.
measure page page ${quick:+--quick} --benchmark_filter=-/10000000
measure page-large page ${quick:+--quick} --benchmark_filter=/10000000
for program in "${programs[@]}" page page-large; do
    [ ! -e "$results/$program.json" ] || files+=("$results/$program.json")
done
cd "$caller"
[ ${#files[@]} -gt 0 ] || fail "nothing was measured."
printf '%s\n\n' "$machine"
python3 "$root/scripts/bench-table.py" "${files[@]}" --machine "$machine" ${json:+--json "$json"} \
    || failed=1
if [ -n "$plots" ]; then
    python3 "$root/scripts/bench-plots.py" "${files[@]}" --out "$plots" || failed=1
fi
[ "$failed" -eq 0 ] || fail "not everything could be measured; the messages above say why."
