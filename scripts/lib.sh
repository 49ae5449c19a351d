# SPDX-License-Identifier: MIT
# Shared by the scripts in this folder; sourced, never run.

repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '== %s\n' "$*"; }

die() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# Prints the named packages that are not installed, one a line.
missing_packages() {
    local installed
    installed=$({ dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true; } |
        sed -n 's/ installed$//p')
    printf '%s\n' "$@" | grep -vxF "$installed" || true
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        die "installing packages needs root or sudo; missing: ${missing[*]}"
    fi
}

# install_packages LIST... installs what scripts/packages<LIST>.txt names and the machine lacks.
# Silent when there is nothing to do.
install_packages() {
    local lists=("${@/%/.txt}") wanted missing log
    command -v dpkg-query >/dev/null || return 0
    mapfile -t wanted < <(cd "$repository/scripts" && sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "${lists[@]}")
    mapfile -t missing < <(missing_packages "${wanted[@]}")
    [ ${#missing[@]} -gt 0 ] || return 0
    say "Installing from Debian: ${missing[*]}"
    log=$(mktemp)
    if ! { as_root apt-get update -qq &&
        as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -qq -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1 </dev/null; then
        cat "$log" >&2
        rm -f "$log"
        die "the packages could not be installed"
    fi
    rm -f "$log"
}

# build PRESET [TARGET] configures when needed and builds all or the one; shows the tools' output only
# when they fail.
build() {
    local preset=$1 target=${2:-all} log
    log=$(mktemp)
    if ! { cmake --preset "$preset" -S "$repository" &&
        cmake --build "$repository/build/$preset" --parallel "$(nproc)" --target "$target"; } \
        >"$log" 2>&1 </dev/null; then
        cat "$log" >&2
        rm -f "$log"
        die "preset $preset did not build"
    fi
    rm -f "$log"
}
