#!/usr/bin/env bash
# What bareroot.sh does in the root.
set -euo pipefail
export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8
names=(factorydebug factorydebug-simulator)
user=technician
home=/home/$user

# All files, but for the kernel's, what each run of a package manager writes anew, and what a user keeps.
files()
{
    find / -xdev \( -path /proc -o -path /sys -o -path /dev -o -path /root -o -path /var/log -o -path /var/cache/apt \
        -o -path '/var/lib/dpkg/*-old' -o -path "$home/*" \) -prune -o -print | sort
}

# try TITLE COMMAND...: as a user, in an empty folder.
try()
{
    local status=0
    echo "== $1"
    runuser -u $user -- env --chdir=$home HOME=$home XDG_RUNTIME_DIR=$home/run "${@:2}" 2>/root/errors || status=$?
    [ $status -eq 0 ] || { cat /root/errors && echo "It ended with $status." && exit 1; }
}

echo "== Installing"
apt-get -qq update
apt-get -qq install --yes --no-install-recommends /root/*.deb man-db bash-completion >/dev/null
useradd --create-home --shell /bin/bash $user
install --directory --mode=700 --owner=$user $home/run # as a login has it
dpkg --purge "${names[@]}" >/dev/null
files >/root/before
dpkg --install /root/*.deb >/dev/null
dpkg --audit
dpkg-query --show "${names[@]}"
echo "$(dpkg --listfiles "${names[@]}" | sort -u | wc -l) files and folders"

try "headunit --self-test" headunit --self-test
try "The tour" headunit --headless --unit tour/unit --script \
    /usr/share/doc/factorydebug-simulator/examples/tour.txt
try "A sweep's clean cell" headunit-sweep --cell gps/clean
try "man headunit" sh -c 'man headunit | head -n 8'
# Bash finds the completion by the program's name, and what completes a verb by that of the function.
try "headunit-ctl rebo" bash -c '. /usr/share/bash-completion/bash_completion
    _completion_loader headunit-ctl
    COMP_WORDS=(headunit-ctl rebo) COMP_CWORD=1
    _headunit_ctl
    echo "${COMPREPLY[*]}"
    [ "${COMPREPLY[*]}" = reboot ]'

echo "== Removing"
dpkg --purge "${names[@]}" >/dev/null
files >/root/after
diff /root/before /root/after && echo "Nothing is left."
