#!/usr/bin/env bash
# Checks, builds and tests the page of a robot at a reception, with a robot in memory.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END'
Usage: scripts/test-reception.sh [OPTION...]

Installs the modules that client/ and reception/ name, builds the client, checks types, lint and layout of
the page's sources, builds reception/dist and runs the tests that need no browser; those that do are in
scripts/test-pages.sh. Needs Node 18 or later with npm (Debian packages: nodejs, npm) and writes only below
client/ and reception/ and to npm's cache.

  --help          this text
END
}

while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        *) say "unknown option $1; see scripts/test-reception.sh --help."; exit 2 ;;
    esac
done

need_node
export npm_config_update_notifier=false
install_modules "$root/client"
cd "$root/client"
npm run --silent build || fail "the client is not built; mend what is above."
install_modules "$root/reception"
cd "$root/reception"
# Whatever the tests write stays in this folder.
mkdir -p node_modules/.tmp
export TMPDIR=$PWD/node_modules/.tmp
npm run --silent check || fail "mend what is above; npm run format lays out the sources."
npm test --silent || fail "the first failed test above says why."
