#!/usr/bin/env bash
# Runs the unit tests under Valgrind's memcheck.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END_OF_USAGE'
Usage: scripts/memcheck.sh [OPTION...] [NAME...]

Builds the preset "dev" and runs the programs of the label unit under Valgrind: reads of what was never
written, accesses to what is not the program's, and what is lost for good are failures. With NAMEs only
these programs, such as tst_message. Logs are in build/dev/memcheck.

  --no-install   install nothing; fail when something is missing
  --help         this text
END_OF_USAGE
}

install=yes names=()
while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        --no-install) install=no; shift ;;
        -*) say "unknown option $1; see scripts/memcheck.sh --help."; exit 2 ;;
        *) names+=("$1"); shift ;;
    esac
done

[ "$install" = no ] || install_packages
command -v valgrind > /dev/null || fail "valgrind is missing (Debian package: valgrind)."
log=$(cd "$root" && cmake --preset dev 2>&1) || {
    printf '%s\n' "$log" >&2
    fail "configuring failed; the message above says why."
}
cd "$root"
known=$(ctest --preset dev -N -L '^unit$' | sed -n 's/^ *Test *#[0-9]*: //p')
for name in "${names[@]}"; do
    grep -qxF -- "$name" <<< "$known" \
        || { say "$name is no program of the label unit; see ctest --preset dev -N -L unit."; exit 2; }
done
[ ${#names[@]} -gt 0 ] || mapfile -t names <<< "$known"
build_preset dev "${names[@]}"
logs="$root/build/dev/memcheck"
mkdir -p "$logs"

# One line for each program: its name, its command, and after each tab one piece of its environment.
programs=$(ctest --preset dev --show-only=json-v1 | python3 -c '
import json, sys
for test in json.load(sys.stdin)["tests"]:
    properties = {p["name"]: p["value"] for p in test.get("properties", [])}
    if test["name"] in sys.argv[1:]:
        print(test["name"], test["command"][0], *properties.get("ENVIRONMENT", []), sep="\t")' \
    "${names[@]}")

failed=()
while IFS=$'\t' read -r -a line; do
    name=${line[0]}
    status=0
    # What Qt compiles of a regular expression reads whole words, beyond the end of a text: no finding.
    env "${line[@]:2}" QT_ENABLE_REGEXP_JIT=0 valgrind --error-exitcode=99 --leak-check=full \
        --errors-for-leak-kinds=definite --show-leak-kinds=definite --num-callers=30 \
        --suppressions="$root/tests/valgrind.supp" \
        --log-file="$logs/$name.log" "${line[1]}" > "$logs/$name.out" 2>&1 < /dev/null || status=$?
    case "$status" in
        0) printf 'passed   %s\n' "$name" ;;
        99) printf 'MEMORY   %s: %s\n' "$name" "$logs/$name.log"; failed+=("$name") ;;
        *) printf 'FAILED   %s (%s): %s\n' "$name" "$status" "$logs/$name.out"; failed+=("$name") ;;
    esac
done <<< "$programs"
[ ${#failed[@]} -eq 0 ] || fail "${#failed[@]} programs failed: ${failed[*]}"
say "nothing found."
