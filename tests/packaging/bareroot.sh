#!/usr/bin/env bash
# bareroot.sh PACKAGE...: installs the packages in a bare root of this Debian, tries there what they bring, and removes
# them. It ends with 1 when anything does not work, or is left. It needs the archive's net, and no root's rights where
# users have namespaces of their own.
set -euo pipefail

here=$(dirname "$(realpath "$0")")

# With terminals of its own, since the unit's serial line is one.
enter='mount -t devpts -o newinstance,ptmxmode=666 devpts "$1/dev/pts" &&
    mount --bind "$1/dev/pts/ptmx" "$1/dev/ptmx" && exec chroot "$1" /root/inbareroot.sh'

exec "$here/../../cmake/debian-root" /dev/null --variant=apt \
    --customize-hook="copy-in $(realpath "$here/inbareroot.sh" "$@" | paste -sd ' ') /root" \
    --customize-hook="unshare --mount sh -c '$enter' sh \"\$1\" >&3"
