#!/usr/bin/env bash
# Looks for hostile input that the library does not stand, for as long as it is told to.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END_OF_USAGE'
Usage: scripts/fuzz.sh [OPTION...] HOURS

Builds the preset "fuzz" and runs its targets for HOURS (0.5 is half an hour), two at a time, each for
the same time. New inputs are kept in build/fuzz/corpus and tried again the next time; what breaks the
library is kept in build/fuzz/findings. Ends with 1 when there is a finding.

  --merge        afterwards, put what reaches new code into the tree: tests/fuzz/corpus
  --no-install   install nothing; fail when something is missing
  --help         this text
END_OF_USAGE
}

hours='' install=yes merge=''
while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        --merge) merge=yes; shift ;;
        --no-install) install=no; shift ;;
        -*) say "unknown option $1; see scripts/fuzz.sh --help."; exit 2 ;;
        *)
            [ -z "$hours" ] || { say "one number of hours, please; see scripts/fuzz.sh --help."; exit 2; }
            hours=$1
            shift
            ;;
    esac
done
[ -n "$hours" ] || { say "how many hours? See scripts/fuzz.sh --help."; exit 2; }
seconds=$(awk -v hours="$hours" 'BEGIN { if (hours ~ /^[0-9]*[.]?[0-9]+$/) printf "%d", hours * 3600 }')
[ "${seconds:-0}" -ge 1 ] || { say "$hours is no number of hours above 0; see scripts/fuzz.sh --help."; exit 2; }

targets=(fuzz_message fuzz_handlers fuzz_sequences)
build="$root/build/fuzz"
tree="$root/tests/fuzz/corpus"
findings="$build/findings"

[ "$install" = no ] || install_packages
build_preset fuzz "${targets[@]}"
rm -rf "$build/fuzz-home" # what a finding left behind
mkdir -p "$findings" "$build/logs" "$build/fuzz-home"
for target in "${targets[@]}"; do
    mkdir -p "$build/corpus/$target"
    rm -f "$build/logs/$target.log"
done
export HOME="$build/fuzz-home" TMPDIR="$build/fuzz-home" LC_ALL=C.UTF-8 QT_LOGGING_RULES='' UBSAN_OPTIONS=print_stacktrace=1
export LSAN_OPTIONS="suppressions=$root/tests/lsan.supp:print_suppressions=0"

running=()
# shellcheck disable=SC2317 # called by the trap
clean_up() { [ ${#running[@]} -eq 0 ] || kill "${running[@]}" 2> /dev/null || true; }
trap clean_up EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# fuzz TARGET SECONDS: in the background, its log behind those before. Leaks are looked for when it ends:
# after each input that would take most of the time.
fuzz() {
    "$build/tests/bin/$1" "$build/corpus/$1" "$tree/$1" -dict="$root/tests/fuzz/json.dict" \
        -max_total_time="$2" -timeout=30 -rss_limit_mb=3072 -detect_leaks=0 -max_len=4096 \
        -print_final_stats=1 \
        -artifact_prefix="$findings/$1-" >> "$build/logs/$1.log" 2>&1 &
    running+=($!)
}

# Processes end now and then, so that what Qt loses does not fill the memory. In each round every
# target runs twice: 1 and 2, 3 and 1, 2 and 3.
rounds=$(((seconds + 899) / 900))
slice=$((seconds / (3 * rounds)))
[ "$slice" -ge 1 ] || slice=1
failed=0
say "$rounds rounds of three times $slice seconds; logs are in $build/logs"
for ((round = 0; round < rounds; ++round)); do
    for pair in '0 1' '2 0' '1 2'; do
        running=()
        for index in $pair; do
            fuzz "${targets[index]}" "$slice"
        done
        for process in "${running[@]}"; do
            wait "$process" || failed=1
        done
        running=()
    done
done

for target in "${targets[@]}"; do
    awk -v target="$target" '
        /^stat::number_of_executed_units:/ { runs += $2 }
        match($0, /cov: [0-9]+/) { edges = substr($0, RSTART + 5, RLENGTH - 5) }
        END { printf "%-16s %d executions, %d edges\n", target, runs, edges }' "$build/logs/$target.log"
done
if [ -n "$merge" ]; then
    for target in "${targets[@]}"; do
        mkdir -p "$tree/$target"
        "$build/tests/bin/$target" -merge=1 "$tree/$target" "$build/corpus/$target" \
            >> "$build/logs/$target.log" 2>&1 || failed=1
    done
fi

files=("$findings"/*)
if [ -e "${files[0]}" ]; then
    say "findings; each is replayed by the line that names it:"
    for file in "${files[@]}"; do
        name=$(basename "$file")
        # Written when the leak sanitizer complains at the end: no input is to blame.
        if [ ! -s "$file" ]; then
            printf '  %s\n' "a leak: build/fuzz/logs/${name%%-*}.log; -detect_leaks=1 tells of the input" >&2
            continue
        fi
        printf '  %s %s\n' "build/fuzz/tests/bin/${name%%-*}" "build/fuzz/findings/$name" >&2
    done
    exit 1
fi
[ "$failed" -eq 0 ] || fail "a target failed without an input; the end of its log says why: $build/logs"
say "nothing found."
