#!/usr/bin/env bash
# Looks for what compilers do not warn of: clang-tidy (.clang-tidy) and clazy, level 1.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"

usage() {
    cat << 'END'
Usage: scripts/tidy.sh [OPTION...] [PATH...]

Installs what is missing (Debian packages), configures the preset and looks at each source below the given
paths, such as panorel/handlers; without any, at host, panorel, simulator, examples, benchmarks and tests,
which takes about half an hour. Ends with 1 when something was found.

  --preset NAME   the build folder whose compile commands count; default: dev, which has to be built
  --only TOOL     clang-tidy or clazy alone
  --no-install    install nothing; fail when something is missing
  --help          this text
END
}

preset=dev
install=yes
tools=(clazy clang-tidy)
paths=()
while [ $# -gt 0 ]; do
    case "$1" in
        --help | -h) usage; exit 0 ;;
        --preset | --only)
            [ $# -ge 2 ] || { say "$1 needs a value; see scripts/tidy.sh --help."; exit 2; }
            if [ "$1" = --preset ]; then preset=$2; else tools=("$2"); fi
            shift 2
            ;;
        --no-install) install=no; shift ;;
        -*) say "unknown option $1; see scripts/tidy.sh --help."; exit 2 ;;
        *) paths+=("${1%/}"); shift ;;
    esac
done
case "${tools[0]}" in
    clazy | clang-tidy) ;;
    *) say "--only takes clang-tidy or clazy, not ${tools[0]}."; exit 2 ;;
esac
[ ${#paths[@]} -gt 0 ] || paths=(host panorel simulator examples benchmarks tests)

[ "$install" = no ] || install_packages clang-tidy clazy
for tool in clang-tidy clazy-standalone; do
    command -v "$tool" > /dev/null || fail "$tool is not installed (Debian packages: clang-tidy, clazy)."
done
cd "$root"
commands="build/$preset/compile_commands.json"
# Generated sources are included by the ones that are looked at, so they have to be there.
[ -f "$commands" ] || fail "$commands is not there: build the preset first (cmake --preset $preset && cmake --build --preset $preset)."

mapfile -t sources < <(python3 - "$root" "$commands" "${paths[@]}" << 'END'
import json, pathlib, sys
root, commands, *paths = sys.argv[1:]
files = {pathlib.Path(entry["file"]) for entry in json.load(open(commands, encoding="utf-8"))}
wanted = [pathlib.Path(root, path).resolve() for path in paths]
for file in sorted(files):
    if any(path == file or path in file.parents for path in wanted):
        print(file)
END
)
[ ${#sources[@]} -gt 0 ] || fail "no source below ${paths[*]} is built by the preset $preset."

headers="$root/(host|panorel|simulator|examples|benchmarks|tests)/.*"
# Compile commands are GCC's: a warning that only it knows is none of ours, and two of clang's are for what
# is meant (PanorelOptions.cmake).
clazy() {
    clazy-standalone -p "build/$preset" --checks=level1 --header-filter="$headers" \
        --extra-arg=-Wno-unknown-warning-option --extra-arg=-Wno-overloaded-virtual \
        --extra-arg=-Wno-gnu-zero-variadic-macro-arguments "$1" 2>&1
}
clang-tidy-one() { clang-tidy -p "build/$preset" --quiet "$1" 2> /dev/null; }
export -f clazy clang-tidy-one
export preset headers

found=0
for tool in "${tools[@]}"; do
    one=$tool
    [ "$tool" = clazy ] || one=clang-tidy-one
    printf '%s: %s sources\n' "$tool" "${#sources[@]}"
    output=$(printf '%s\0' "${sources[@]}" | xargs -0 -P "$(nproc)" -I '{}' bash -c "$one {}") || true
    # A header is looked at with each source that includes it.
    output=$(grep -E '(warning|error): ' <<< "$output" | sort -u || true)
    [ -z "$output" ] || { printf '%s\n' "$output"; found=1; }
done
[ "$found" -eq 0 ] || fail "mend what is above; what is meant gets a NOLINT or a clazy:exclude with its reason."
say "nothing found."
