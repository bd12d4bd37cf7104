#!/usr/bin/env bash
# Tells which lines and branches of the two libraries the tests run.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END'
Usage: scripts/coverage.sh [OPTION...]

Installs what is missing (Debian packages), builds with counters, runs the tests of the library (labels
unit, bridge, sound and page), prints a table of its sources, and writes build/coverage/report/index.html.
Ends with 1 when fewer than 98 % of the lines or 90 % of the branches ran; docs/coverage.md explains the
rest.

  --no-install   install nothing; fail when something is missing
  --no-run       only report what the last run counted
  --help         this text
END
}

install=yes
run=yes
while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        --no-install) install=no; shift ;;
        --no-run) run=no; shift ;;
        *) say "unknown option $1; see scripts/coverage.sh --help."; exit 2 ;;
    esac
done

[ "$install" = no ] || install_packages gcovr
command -v gcovr > /dev/null || fail "gcovr is not installed (Debian package: gcovr)."
build="$root/build/coverage"
if [ "$run" = yes ]; then
    build_preset coverage
    # Counters of earlier runs would be added to.
    find "$build" -name '*.gcda' -delete
    ctest --preset coverage || fail "tests failed, so what they cover is not counted; mend them first."
elif [ -z "$(find "$build" -name '*.gcda' -print -quit 2> /dev/null)" ]; then
    fail "nothing was counted yet; call this without --no-run."
fi

mkdir -p "$build/report"
cd "$root"
gcovr --root "$root" --filter 'panorel/' --filter 'host/' --object-directory "$build" \
    --exclude-unreachable-branches --exclude '.*_autogen.*' \
    --print-summary --html-details "$build/report/index.html" \
    --txt "$build/report/lines.txt" --json "$build/report/coverage.json" \
    --fail-under-line 98 --fail-under-branch 90 "$build"
