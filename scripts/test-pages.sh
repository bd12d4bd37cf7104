#!/usr/bin/env bash
# Tests pages with a simulated robot, in Chromium and on the robot's screen: the client's runner, its shortest
# page, its template, and the reception.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END'
Usage: scripts/test-pages.sh [OPTION...]

Installs the modules that client/, client/template/ and reception/ name, builds them, and runs their tests
that need a simulator and a browser. Needs Node 18 or later with npm, and Chromium (Debian packages: nodejs,
npm, chromium). Writes only below client/ and reception/, to npm's cache and to a temporary folder, which it
removes.

  --simulator PATH   the program to test with; default: builds the one of the preset dev
  --help             this text

The environment variable CHROMIUM names another browser of that kind. With PANOREL_PICTURES=FOLDER the visits
of the reception leave pictures of its screens there.
END
}

simulator=''
while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        --simulator) value_of "$@"; simulator=$(absolute "$2"); shift 2 ;;
        *) say "unknown option $1; see scripts/test-pages.sh --help."; exit 2 ;;
    esac
done

need_node
command -v "${CHROMIUM:-chromium}" > /dev/null \
    || fail "${CHROMIUM:-chromium} is not installed (Debian package: chromium)."

if [ -z "$simulator" ]; then
    build_preset dev panorel-simulator
    simulator=$root/build/dev/bin/panorel-simulator
fi
[ -x "$simulator" ] && [ ! -d "$simulator" ] || fail "there is no program $simulator."

export npm_config_update_notifier=false PANOREL_SIMULATOR=$simulator

install_modules "$root/client"
cd "$root/client"
npm run --silent build || fail "the client is not built; mend what is above."
install_modules "$root/client/template"
cd template
# The template has a copy of the client, which may have been built anew.
rm -rf node_modules/panorel-client/dist
cp -r ../dist node_modules/panorel-client/dist

# "npm run" changes the folder.
[ -z "${PANOREL_PICTURES:-}" ] || PANOREL_PICTURES=$(absolute "$PANOREL_PICTURES")
# Sockets in it need a short path.
make_work_folder "${TMPDIR:-/tmp}/panorel-pages"
export TMPDIR=$work/tmp
npm run --silent check || fail "the template's types are wrong; see above."
npm test --silent || fail "the template's first failed test above says why."
npm run --silent test:browser || fail "the template's first failed test above says why."
cd ..
npm run --silent test:pages || fail "the first failed test above says why."
install_modules "$root/reception"
cd "$root/reception"
npm run --silent test:browser || fail "the first failed visit above says why."
