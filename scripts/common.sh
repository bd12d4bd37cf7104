# Shared by run.sh, test.sh and scripts/bench.sh: what they need before a build. Sourced, never run.

say() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; }

fail() {
    say "$*"
    exit 1
}

# Installs the Debian packages of scripts/debian-packages.txt that are missing, and further ones:
# install_packages [package...]
install_packages() {
    local list="$root/scripts/debian-packages.txt" missing=() package
    if ! command -v dpkg-query > /dev/null; then
        say "this is no Debian system: install what $list names${*:+, and $*,} by hand," \
            "then call again with --no-install."
        exit 1
    fi
    while read -r package; do
        case "$package" in '' | '#'*) continue ;; esac
        dpkg-query -W -f '${Status}\n' "$package" 2> /dev/null | grep -q '^install ok installed$' \
            || missing+=("$package")
    done < <(cat "$list" && printf '%s\n' "$@")
    [ ${#missing[@]} -eq 0 ] && return

    local become=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo > /dev/null \
            || fail "these packages are missing; have an administrator install them: ${missing[*]}"
        become=(sudo)
    fi
    say "installing ${missing[*]}"
    "${become[@]}" apt-get update -qq || fail "apt-get update failed; check the network and try again."
    "${become[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" > /dev/null \
        || fail "apt-get could not install ${missing[*]}; its message above says why."
}

# Configures and builds a preset: build_preset NAME [target...]
build_preset() {
    local preset=$1 log
    shift
    cd "$root" || exit 1
    # The configure output matters only when something is wrong.
    log=$(cmake --preset "$preset" 2>&1) || {
        printf '%s\n' "$log" >&2
        fail "configuring failed; the message above says why."
    }
    cmake --build --preset "$preset" ${1:+--target "$@"} >&2 \
        || fail "building failed; the first error above says why."
}

# Gives the process a private folder for sockets, when the login has none.
need_runtime_dir() {
    [ -n "${XDG_RUNTIME_DIR:-}" ] && [ -d "$XDG_RUNTIME_DIR" ] && return
    XDG_RUNTIME_DIR="$root/build/runtime"
    mkdir -p "$XDG_RUNTIME_DIR"
    chmod 0700 "$XDG_RUNTIME_DIR"
    export XDG_RUNTIME_DIR
}

# The web engine's sandbox refuses to run as root; as any other user it stays on.
handle_root() {
    [ "$(id -u)" -eq 0 ] || return 0
    export QTWEBENGINE_DISABLE_SANDBOX=1
    say "running as root, so the web engine's sandbox is off (QTWEBENGINE_DISABLE_SANDBOX=1)."
}
