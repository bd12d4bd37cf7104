#!/usr/bin/env bash
# What some of scripts/ answer before they build anything: check-options.sh ROOT
set -euo pipefail
scripts=$1/scripts

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# refuses WORD SCRIPT [ARGUMENT...]: ends with 2, and says WORD and where the help is.
refuses() {
    local word=$1 script=$2 status=0 message
    shift 2
    message=$("$scripts/$script" "$@" 2>&1 < /dev/null) || status=$?
    [ "$status" -eq 2 ] || fail "$script $* ends with $status instead of 2: $message"
    grep -qF -- "$word" <<< "$message" || fail "$script $*: no word about $word: $message"
    grep -qF -- '--help' <<< "$message" || fail "$script $*: no word about --help: $message"
}

# helps SCRIPT OPTION...: the help tells of each.
helps() {
    local script=$1 help option
    shift
    help=$("$scripts/$script" --help)
    for option in "$@"; do
        grep -q -- "^  $option" <<< "$help" || fail "the help of $script does not tell of $option"
    done
}

helps fuzz.sh --merge --no-install --help
refuses --no-such-option fuzz.sh --no-such-option
refuses 'how many hours' fuzz.sh --no-install
refuses 'one number' fuzz.sh --no-install 1 2
for hours in 0 0.0001 -1 one 1h . '' 1,5; do
    refuses "$hours" fuzz.sh --no-install "$hours"
done

helps memcheck.sh --no-install --help
refuses --no-such-option memcheck.sh --no-such-option

helps test-pages.sh --simulator --help
refuses --no-such-option test-pages.sh --no-such-option
refuses --simulator test-pages.sh --simulator

helps test-reception.sh --help
refuses --no-such-option test-reception.sh --no-such-option
