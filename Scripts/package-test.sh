#!/usr/bin/env bash
# Installs the package that Scripts/package.sh made in a bare Debian 12, uses it there as a person
# would, purges it, and looks at what is left. As root, on Debian:
#
#   Scripts/package-test.sh [BASE]
#
# BASE: a folder that debootstrap made, which is copied and stays as it is; left out: one is made.
# Everything else happens in a folder that is removed, with mounts and processes that no other program
# sees and that are gone with the run.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts=$PWD/Scripts
package=$(ls "$PWD"/build/package/package/wendlow_*_amd64.deb)

if ! command -v debootstrap >/dev/null; then
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends debootstrap >/dev/null
fi
folder=$(mktemp -d "${TMPDIR:-/var/tmp}/wendlow-package-XXXXXX")
trap 'rm -rf --one-file-system "$folder"' EXIT
root=$folder/root
if [ $# -gt 0 ]; then
    cp -a "$1" "$root"
else
    debootstrap --variant=minbase bookworm "$root" >"$folder/debootstrap.log" ||
        { cat "$folder/debootstrap.log" >&2; exit 1; }
fi
mkdir "$root/media/package"
cp "$package" "$scripts/package-test-inside.sh" "$root/media/package/"
cp -L /etc/resolv.conf "$root/etc/resolv.conf"
printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d" # no service is started in a folder
chmod 755 "$root/usr/sbin/policy-rc.d"

unshare --mount --pid --ipc --uts --fork --kill-child bash -euo pipefail -c '
    mount --make-rprivate /
    mount -t proc proc "$1/proc"
    mount -t tmpfs -o mode=755 dev "$1/dev"
    for device in null zero full random urandom tty; do
        touch "$1/dev/$device"
        mount --bind "/dev/$device" "$1/dev/$device"
    done
    ln -s /proc/self/fd "$1/dev/fd"
    mkdir "$1/dev/shm"
    mount -t tmpfs -o mode=1777 shm "$1/dev/shm"
    mount -t tmpfs -o mode=1777 tmp "$1/tmp"
    exec env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        HOME=/root TERM=dumb chroot "$1" bash /media/package/package-test-inside.sh
' bash "$root"
