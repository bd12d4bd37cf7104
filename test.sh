#!/usr/bin/env bash
# Builds everything with warnings as errors and runs all tests. Ends with CTest's closing line.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END'
Usage: ./test.sh [OPTION...] [-- CTEST-OPTION...]

Installs what is missing (Debian packages), builds, and runs all tests.

  --preset NAME   build with this CMake preset (dev, asan, tsan, ci); default: dev
  --no-install    install nothing; fail when something is missing
  --help          this text

For example: ./test.sh --preset asan -- -L unit
END
}

preset=dev
install=yes
while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        --preset)
            [ $# -ge 2 ] || { say "--preset needs a name; see ./test.sh --help."; exit 2; }
            preset=$2
            shift 2
            ;;
        --no-install) install=no; shift ;;
        --) shift; break ;;
        *) say "unknown option $1; see ./test.sh --help."; exit 2 ;;
    esac
done

[ "$install" = no ] || install_packages
build_preset "$preset"
exec ctest --preset "$preset" "$@"
