#!/usr/bin/env bash
# Calls scripts/soak.sh as a person would: check-script.sh ROOT WORK-FOLDER
set -euo pipefail
root=$1 work=$2

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

help=$("$root/scripts/soak.sh" --help)
for option in --events --growth-limit --loads --large --flood-seconds --fault --json --no-install --help; do
    grep -q -- "  $option" <<< "$help" || fail "the help does not tell of $option"
done

for arguments in "--no-such-option" "--events many" "--json"; do
    status=0
    # shellcheck disable=SC2086 # option and value
    message=$("$root/scripts/soak.sh" $arguments 2>&1) || status=$?
    [ "$status" -eq 2 ] || fail "\"$arguments\" ends with $status instead of 2: $message"
done

# A relative path is the caller's. A fault ends the script with 1, and it says why.
mkdir -p "$work/figures"
cd "$work/figures"
rm -f figures.json
folders() { find "$root/build/ci" -maxdepth 1 -name 'soak.*' | sort; }
before=$(folders)
status=0
output=$("$root/scripts/soak.sh" --no-install --events 3000 --loads 2 --large 0 --flood-seconds 0 \
    --fault lost-event --json figures.json 2>&1) || status=$?
[ "$status" -eq 1 ] || fail "a fault ends with $status instead of 1: $output"
grep -q '^BROKEN: messages to the page' <<< "$output" || fail "no word of the fault: $output"
grep -q 'soak.sh: a limit is broken' <<< "$output" || fail "no closing word: $output"
python3 -c 'import json; json.load(open("figures.json"))["broken"][0]' || fail "no figures as JSON"
[ "$(folders)" = "$before" ] || fail "a folder is left behind: $(folders)"
