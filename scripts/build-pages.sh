#!/usr/bin/env bash
# Builds what pages need and what the simulator shows: the client package and the reception page.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END'
Usage: scripts/build-pages.sh FOLDER

Installs the modules that client/ and reception/ name, and builds client/dist, FOLDER/panorel.min.js, the
client as a plain script, and FOLDER/reception, the page of a robot at a reception. Needs Node 18 or later
with npm (Debian packages: nodejs, npm).

  --help          this text
END
}

case "${1:-}" in
    --help | -h) usage; exit 0 ;;
    -*) say "unknown option $1; see scripts/build-pages.sh --help."; exit 2 ;;
esac
[ $# -eq 1 ] && [ -n "$1" ] || { say "it takes one folder to build into; see scripts/build-pages.sh --help."; exit 2; }
folder=$(absolute "$1")

need_node
export npm_config_update_notifier=false
install_modules "$root/client"
install_modules "$root/reception"
mkdir -p "$folder"

# Builds of two presets at once would write one client/dist.
exec 9> "$root/build/.pages-lock"
flock 9
cd "$root/client"
npm run --silent build || fail "the client is not built; its message above says why."
cp dist/panorel.min.js "$folder/"
cd "$root/reception"
npm run --silent build -- --outDir "$folder/reception" --emptyOutDir --logLevel warn \
    || fail "the reception page is not built; its message above says why."
