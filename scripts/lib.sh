# SPDX-License-Identifier: MIT
# Shared by the scripts in this folder; sourced, never run.

repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '== %s\n' "$*"; }

die() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# run_quietly WHAT COMMAND... says what is done and shows the command's output only when it fails.
run_quietly() {
    local what=$1 log
    shift
    say "$what"
    log=$(mktemp)
    if ! "$@" >"$log" 2>&1 </dev/null; then
        cat "$log" >&2
        rm -f "$log"
        die "failed: $what"
    fi
    rm -f "$log"
}

# Prints what scripts/LIST.txt of each LIST names, one a line.
listed_packages() {
    (cd "$repository/scripts" && sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "${@/%/.txt}")
}

# Prints the named packages that are not installed, one a line.
missing_packages() {
    local installed
    installed=$({ dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true; } |
        sed -n 's/ installed$//p')
    printf '%s\n' "$@" | grep -vxF "$installed" || true
}

# install_packages LIST... installs what scripts/LIST.txt names and the machine lacks.
# Silent when there is nothing to do.
install_packages() {
    local wanted missing administrator=()
    command -v dpkg-query >/dev/null || return 0
    # No process substitution: it takes /dev/fd, which a bare chroot has not.
    mapfile -t wanted <<<"$(listed_packages "$@")"
    mapfile -t missing <<<"$(missing_packages "${wanted[@]}")"
    [ -n "${missing[0]}" ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        administrator=(sudo)
        command -v sudo >/dev/null || die "these Debian packages are missing, and installing them needs root or sudo.
An administrator installs them with one command:
  apt-get update && apt-get install --no-install-recommends ${missing[*]}"
        # Asks for the password while there is a terminal to ask on.
        sudo true || die "installing packages was not allowed; missing: ${missing[*]}"
    fi
    run_quietly "Reading Debian's package lists" "${administrator[@]}" apt-get update -qq
    run_quietly "Installing from Debian (some minutes at most): ${missing[*]}" \
        "${administrator[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -qq -y --no-install-recommends "${missing[@]}"
}

# Prints a number of seconds for people.
duration() {
    if [ "$1" -lt 90 ]; then
        echo "$1 s"
    else
        echo "$((($1 + 30) / 60)) minutes"
    fi
}

# Reads what ninja prints and shows how far it is: one changing line on a terminal, a line every minute
# elsewhere. A step is about a second of one processor, which makes the first estimate.
show_progress() {
    local line progress started=$SECONDS shown=$SECONDS announced=
    while IFS= read -r line; do
        [[ "$line" =~ ^\[([1-9][0-9]*)/([0-9]+)\] ]] || continue
        local done=${BASH_REMATCH[1]} total=${BASH_REMATCH[2]}
        if [ -z "$announced" ] && [ "$total" -ge 10 ]; then
            say "Compiling: $total steps, about $(duration $((total / $(nproc))))"
            announced=yes
        fi
        progress="   step $done of $total, about $(duration $(((SECONDS - started) * (total - done) / done))) left"
        if [ -t 1 ]; then
            printf '\r%s\033[K' "$progress"
        elif [ $((SECONDS - shown)) -ge 60 ]; then
            printf '%s\n' "$progress"
            shown=$SECONDS
        fi
    done
    [ ! -t 1 ] || printf '\r\033[K'
}

# build PRESET [TARGET] configures when needed and builds what the preset names (mostly all) or the one;
# shows the tools' output only when they fail.
build() {
    local preset=$1 target=(${2:+--target "$2"}) log
    run_quietly "Configuring the $preset preset" cmake --preset "$preset" -S "$repository"
    log=$(mktemp)
    if ! (cd "$repository" && cmake --build --preset "$preset" --parallel "$(nproc)" "${target[@]}") 2>&1 </dev/null |
        tee "$log" | show_progress; then
        cat "$log" >&2
        rm -f "$log"
        die "preset $preset did not build"
    fi
    rm -f "$log"
}
