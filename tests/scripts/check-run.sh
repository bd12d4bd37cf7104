#!/usr/bin/env bash
# Calls run.sh as a person would, without a display: check-run.sh ROOT PRESET WORK-FOLDER
set -euo pipefail
root=$1 preset=$2 work=$3
unset DISPLAY WAYLAND_DISPLAY

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# Every option that the help names is understood, and the help names them all.
help=$("$root/run.sh" --help)
for option in --screenshot --page --scenario --without --demo --speed --data --log --preset --no-install --help; do
    grep -q -- "  $option" <<< "$help" || fail "the help does not tell of $option"
done

status=0
message=$("$root/run.sh" --no-such-option 2>&1) || status=$?
[ "$status" -eq 2 ] || fail "an unknown option ends with $status instead of 2"
grep -q -- '--no-such-option.*--help' <<< "$message" || fail "no help about an unknown option: $message"

status=0
message=$("$root/run.sh" --no-install --preset "$preset" --page no-such-page --screenshot x.png 2>&1) \
    || status=$?
[ "$status" -eq 1 ] || fail "a page that is not there ends with $status instead of 1: $message"
grep -q 'no-such-page' <<< "$message" || fail "no word about the page that is not there: $message"

# A relative path is the caller's.
mkdir -p "$work/shots"
cd "$work/shots"
rm -rf shot.png data
"$root/run.sh" --no-install --preset "$preset" --speed 4 --data data --without keyboard \
    --screenshot shot.png 2> run.log \
    || fail "no screenshot: $(cat run.log)"
[ -s data/users.sqlite ] || fail "no data in the folder that --data names"
if [ "$(id -u)" -eq 0 ]; then
    grep -q 'QTWEBENGINE_DISABLE_SANDBOX=1' run.log || fail "run.sh does not say that the sandbox is off"
fi
python3 - shot.png << 'END' || fail "shot.png is no picture of the whole window"
import struct, sys
data = open(sys.argv[1], "rb").read()
assert data[:8] == b"\x89PNG\r\n\x1a\n", "no PNG"
width, height = struct.unpack(">II", data[16:24])
assert (width, height) == (1280, 800), (width, height)
assert len(data) > 50000, f"only {len(data)} bytes: the page is not on it"
END
