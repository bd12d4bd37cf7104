# Shared by run.sh, test.sh and the scripts of this folder: messages, options, what a build needs, and
# programs that run apart. Sourced, never run.

say() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; }

fail() {
    say "$*"
    exit 1
}

# For options that take a value: value_of "$@"
value_of() { [ $# -ge 2 ] || { say "$1 needs a value; see $0 --help."; exit 2; }; }

# Paths are the caller's, and a build changes the folder. An address is left as it is.
caller=$PWD
absolute() {
    case "$1" in
        /* | [a-z]*:*) printf '%s' "$1" ;;
        *) printf '%s/%s' "$caller" "$1" ;;
    esac
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
        case "$package" in
            '' | '#'*) continue ;;
            # Another Node than Debian's brings its own, and the two do not go together.
            nodejs | npm) ! command -v npm > /dev/null || continue ;;
        esac
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

need_node() {
    local tool version major
    for tool in node npm; do
        command -v "$tool" > /dev/null || fail "$tool is not installed (Debian packages: nodejs, npm)."
    done
    version=$(node --version)
    major=${version#v}
    [ "${major%%.*}" -ge 18 ] || fail "Node $version is too old: 18 or later is needed."
}

# Installs the modules that FOLDER/package-lock.json names, unless they are there already; of several
# scripts at once, one does it: install_modules FOLDER
install_modules() {
    local folder=$1
    mkdir -p "$root/build"
    (
        flock 9
        cmp -s "$folder/package-lock.json" "$folder/node_modules/.panorel-installed" && exit 0
        cd "$folder"
        npm_config_update_notifier=false npm ci --no-audit --no-fund --loglevel=error \
            || fail "npm could not install the modules of $folder; its message above says why."
        cp package-lock.json node_modules/.panorel-installed
    ) 9> "$root/build/.npm-lock" || exit 1
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

work='' running=''
# shellcheck disable=SC2317 # called by the trap
end_what_runs() {
    if [ -n "$running" ]; then
        kill "$running" 2> /dev/null || true # timeout passes it on
        wait "$running" 2> /dev/null || true
        kill -KILL -- -"$running" 2> /dev/null || true
    fi
    [ -z "$work" ] || rm -rf "$work"
}

# Makes the folder $work, named after its argument, which goes away with the script, as do programs
# that run_apart started.
make_work_folder() {
    trap end_what_runs EXIT
    trap 'exit 129' HUP
    trap 'exit 130' INT
    trap 'exit 143' TERM
    work=$(mktemp -d "$1.XXXXXX")
    mkdir "$work/home" "$work/tmp"
}

# run_apart SECONDS PROGRAM [ARGUMENT...]: in the background, so that Ctrl-C is heard at once; "timeout"
# makes it and the web engine's processes a group of their own. A home and a folder for temporary files
# of its own keep it from what is the user's, and a sound server that is not there from starting one.
run_apart() {
    local limit=$1 status=0
    shift
    env HOME="$work/home" XDG_CACHE_HOME="$work/home/cache" XDG_CONFIG_HOME="$work/home/config" \
        XDG_DATA_HOME="$work/home/data" TMPDIR="$work/tmp" PULSE_SERVER="unix:$work/no-sound" \
        LC_ALL=C.UTF-8 QT_LOGGING_RULES= QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software \
        QTWEBENGINE_CHROMIUM_FLAGS=--disable-gpu timeout --kill-after=10 "$limit" "$@" &
    running=$!
    wait "$running" 2> /dev/null || status=$?
    kill -KILL -- -"$running" 2> /dev/null || true # what a crash may have left
    running=''
    return "$status"
}
