# SPDX-License-Identifier: MIT
# Shared by what works in a Debian chroot; sourced after lib.sh, never run.

# Chroots are root's; says so before anything is begun.
need_chroots() {
    [ "$(id -u)" -eq 0 ] || die "needs root, to make a chroot and to enter it: sudo $0${*:+ $*}"
    unshare --mount true 2>/dev/null || die "needs the right to mount, which this machine or container withholds"
    install_packages packages-chroot
}

# make_chroot FOLDER makes a bare Debian 12 there.
make_chroot() {
    debootstrap --variant=minbase --include=ca-certificates bookworm "$1"
    # Nothing is to be started in there.
    printf '#!/bin/sh\nexit 101\n' >"$1/usr/sbin/policy-rc.d"
    chmod +x "$1/usr/sbin/policy-rc.d"
}

# in_chroot FOLDER COMMAND... runs a command there, with the checkout at /src/checkout and the mail that may
# lie beside it. The mounts are those of a namespace of its own and vanish with it.
in_chroot() {
    chroot=$1 repository=$repository unshare --mount --propagation private bash -euc '
        mkdir -p "$chroot/src/checkout" "$chroot/src/shared"
        mount --bind "$repository" "$chroot/src/checkout"
        [ ! -d "$repository/../shared" ] || mount --bind "$repository/../shared" "$chroot/src/shared"
        mount -t proc proc "$chroot/proc"
        mount --rbind /dev "$chroot/dev"
        exec chroot "$chroot" "$@"' in_chroot "${@:2}"
}
