#!/usr/bin/env bash
# Builds the soak optimised, runs a long day in front of a real page, and prints the figures.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END'
Usage: scripts/soak.sh [OPTION...]

Builds the preset "ci" and runs the soak: a million events to a real page and a million requests
from it, with face reports, page loads and new sets of handlers in between; then enormous messages
and floods. Takes ten to twenty minutes after the build. Ends with 1 when a limit of
docs/reliability.md is broken, and says which one.

  --events N          this many events, and as many requests, instead of a million; with fewer than
                      some 200,000 the caches still warm up after the first tenth
  --growth-limit N    memory may grow by N percent; default: 2
  --loads N           load the page so often; default: 25
  --large LIST        characters of the large messages; default: 60000000,100000000; 0: none
  --flood-seconds N   how long each of the two floods lasts; default: 60; 0: none
  --fault NAME        let the bus have a fault that the soak must notice: lost-request,
                      doubled-request, swapped-requests, lost-event, doubled-event, swapped-events,
                      leak or sleep
  --json FILE         write the figures as JSON, too
  --no-install        install nothing; fail when something is missing
  --help              this text
END
}

time_limit=7200
install=yes
arguments=()
while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        --json) value_of "$@"; arguments+=("$1" "$(absolute "$2")"); shift 2 ;;
        --events | --growth-limit | --loads | --flood-seconds)
            value_of "$@"
            [[ $2 =~ ^[0-9]{1,9}$ ]] || { say "$1 needs a number, not \"$2\"."; exit 2; }
            arguments+=("$1" "$2")
            shift 2
            ;;
        --large | --fault) value_of "$@"; arguments+=("$1" "$2"); shift 2 ;;
        --no-install) install=no; shift ;;
        *) say "unknown option $1; see scripts/soak.sh --help."; exit 2 ;;
    esac
done

[ "$install" = no ] || install_packages
build_preset ci panorel-soak
need_runtime_dir
handle_root

make_work_folder "$root/build/ci/soak"
cd "$caller"
status=0
run_apart "$time_limit" "$root/build/ci/tests/bin/panorel-soak" "${arguments[@]}" || status=$?
case "$status" in
    0) ;;
    1) fail "a limit is broken; the lines \"BROKEN\" above say which." ;;
    2) exit 2 ;;
    124) fail "the soak took more than $time_limit seconds and was stopped." ;;
    *) fail "the soak ended with status $status, before it could tell its figures." ;;
esac
