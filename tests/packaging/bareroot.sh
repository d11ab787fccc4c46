#!/usr/bin/env bash
# bareroot.sh PACKAGE...: installs the packages in a bare root of this Debian, tries there what they bring, and removes
# them. It ends with 1 when anything does not work, or is left. It needs the archive's net, and no root's rights where
# users have namespaces of their own.
set -euo pipefail

attempts=5
pause=60 # seconds in which an archive ends its update
updating='unexpected size|Hash Sum mismatch|Mirror sync in progress|404 +Not Found'

tested=$(dirname "$(realpath "$0")")/inbareroot.sh
codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
# The archive that this machine has its own packages from.
archive=$(apt-get indextargets --format '$(REPO_URI)' "Codename: $codename" 'Component: main' | sort -u | head -n 1)

# With terminals of its own, since the unit's serial line is one.
enter='mount -t devpts -o newinstance,ptmxmode=666 devpts "$1/dev/pts" &&
    mount --bind "$1/dev/pts/ptmx" "$1/dev/ptmx" && exec chroot "$1" /root/inbareroot.sh'

log=$(mktemp)
trap 'rm -f "$log"' EXIT
for attempt in $(seq $attempts); do
    status=0
    mmdebstrap --mode=auto --variant=apt --components=main \
        --customize-hook="copy-in $(realpath "$tested" "$@" | paste -sd ' ') /root" \
        --customize-hook="unshare --mount sh -c '$enter' sh \"\$1\" >&3" \
        "$codename" /dev/null $archive 3>&1 2>"$log" || status=$?
    [ $status -ne 0 ] || exit 0
    if ! grep -qE "$updating" "$log" || [ "$attempt" -eq $attempts ]; then
        cat "$log" >&2
        exit 1
    fi
    echo "The archive is being updated: trying again in $pause s."
    sleep $pause
done
