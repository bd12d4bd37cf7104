#!/usr/bin/env bash
# That the soak notices a fault of the bus: check-fault.sh PROGRAM FAULT WORDS
set -euo pipefail
program=$1 fault=$2 words=$3

status=0
output=$("$program" --fault "$fault" --events 4000 --loads 2 --large 0 --flood-seconds 0 \
    --stall-limit 50 --growth-limit 20) || status=$?
printf '%s\n' "$output"
[ "$status" -eq 1 ] || { echo "FAILED: status $status instead of 1"; exit 1; }
grep -q "^BROKEN: $words" <<< "$output" || { echo "FAILED: no word of \"$words\""; exit 1; }
