#!/usr/bin/env bash
# Checks, builds and tests the page's client package, from a clean folder of modules.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END'
Usage: scripts/test-client.sh [OPTION...]

Installs the modules that client/package-lock.json names, checks types, lint and layout of the sources,
builds client/dist and runs the tests. Needs Node 18 or later with npm (Debian packages: nodejs, npm) and
writes only below client/ and to npm's cache.

  --keep          keep the modules that are there, if any
  --help          this text
END
}

keep=no
while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        --keep) keep=yes; shift ;;
        *) say "unknown option $1; see scripts/test-client.sh --help."; exit 2 ;;
    esac
done

for tool in node npm; do
    command -v "$tool" > /dev/null || fail "$tool is not installed (Debian packages: nodejs, npm)."
done
version=$(node --version)
major=${version#v}
[ "${major%%.*}" -ge 18 ] || fail "Node $version is too old: 18 or later is needed."

export npm_config_update_notifier=false
cd "$root/client"
if [ "$keep" = no ] || [ ! -d node_modules ]; then
    npm ci --no-audit --no-fund --loglevel=error || fail "npm could not install the modules; its message above says why."
fi
# Whatever the tests write stays in this folder.
mkdir -p node_modules/.tmp
export TMPDIR=$PWD/node_modules/.tmp
npm run --silent check || fail "mend what is above; npm run format lays out the sources."
npm test --silent || fail "the first failed test above says why."
