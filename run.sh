#!/usr/bin/env bash
# Builds Panorel and shows a page with a simulated robot behind it.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END'
Usage: ./run.sh [OPTION...]

Installs what is missing (Debian packages), builds, and starts the simulator: a window with the
page of a reception and, beside it, the robot. Without a display the same runs under Xvfb.

  --screenshot FILE   show the page, wait until page and robot have exchanged messages, write a
                      PNG of the whole window to FILE, and end
  --page PAGE         show this page instead: a file, a folder with an index.html, or an address
  --serve             serve the page to your browser in place of showing it; prints the address.
                      With it: --window, --port NUMBER, --listen ADDRESS, --allow-origin ORIGIN
                      and --one-browser (docs/serve.md)
  --scenario FILE     let the robot say and understand what this JSON file describes
  --without LIST      let the robot lack devices: printer, dispenser, passport-scanner,
                      document-scanner, keyboard, users; separated by commas
  --demo              play a short visit: somebody comes, talks to the robot, answers a question
  --speed FACTOR      let the robot act FACTOR times as fast (2: twice)
  --data FOLDER       keep whom the robot knows in FOLDER; default: your own data folder
  --log               write the library's debug log to standard error
  --preset NAME       build with this CMake preset (dev, asan, ci, release); default: dev
  --no-install        install nothing; fail when something is missing
  --help              this text

As root the web engine's sandbox is switched off; as any other user it stays on.
END
}

preset=dev
install=yes
screenshot=
arguments=()
while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        --preset) value_of "$@"; preset=$2; shift 2 ;;
        --no-install) install=no; shift ;;
        --screenshot)
            value_of "$@"
            screenshot=$(absolute "$2")
            arguments+=("$1" "$screenshot")
            shift 2
            ;;
        --page) value_of "$@"; arguments+=("$1" "$(absolute "$2")"); shift 2 ;;
        --scenario) value_of "$@"; arguments+=("$1" "$(absolute "$2")"); shift 2 ;;
        --speed | --data | --without | --port | --listen | --allow-origin) value_of "$@"; arguments+=("$1" "$2"); shift 2 ;;
        --demo | --log | --serve | --window | --one-browser) arguments+=("$1"); shift ;;
        *) say "unknown option $1; see ./run.sh --help."; exit 2 ;;
    esac
done

[ "$install" = no ] || install_packages
build_preset "$preset" panorel-simulator
need_runtime_dir
handle_root

simulator="$root/build/$preset/bin/panorel-simulator"
cd "$caller"
if [ -n "${DISPLAY:-}" ]; then
    exec "$simulator" "${arguments[@]}"
fi

[ -n "$screenshot" ] || say "no display: running under Xvfb, unseen. Try --screenshot FILE or --serve; Ctrl+C ends."
export QT_QPA_PLATFORM=xcb QT_QUICK_BACKEND=software
export QTWEBENGINE_CHROMIUM_FLAGS="${QTWEBENGINE_CHROMIUM_FLAGS:---disable-gpu}"
# The display's password stays in the private folder: a folder that xvfb-run makes for it may fail to
# go away, and then its status takes the simulator's place.
exec xvfb-run -a -f "$XDG_RUNTIME_DIR/panorel-xvfb.authority" -s '-screen 0 1280x800x24' \
    "$simulator" "${arguments[@]}"
