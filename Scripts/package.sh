#!/usr/bin/env bash
# Makes build/package/package/wendlow_<version>_amd64.deb of what is committed here, and looks at it:
# the entry and the metadata by their validators, the package by lintian, its size. Two builds of one
# commit give the same bytes. docs/packaging.md tells more.
set -euo pipefail
cd "$(dirname "$0")/.."
MORE_PACKAGES="dpkg-dev lintian desktop-file-utils appstream librsvg2-bin file binutils xz-utils" \
    Scripts/dependencies.sh

# Every date in the package is the commit's, and the resource compiler's is too.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH QT_RCC_SOURCE_DATE_OVERRIDE=$SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8
umask 022

cmake --preset package >/dev/null
cmake --build --preset package ${JOBS:+-j "$JOBS"}
rm -rf build/package/package
(cd build/package && cpack -G DEB >cpack.log 2>&1) || {
    cat build/package/cpack.log >&2
    exit 1
}
package=$(ls build/package/package/wendlow_*_amd64.deb)

# Each of these is silent where all is well. The pages that the metadata points to are looked at when
# they are published. Debian 12's validator does not know the top-level domain "works", which there is.
metadata=build/package/Packaging/Debian/works.fenmoor.wendlow.metainfo.xml
complaints=$(
    desktop-file-validate Packaging/Desktop/works.fenmoor.wendlow.desktop 2>&1 || true
    appstreamcli validate --pedantic --no-net --no-color "$metadata" 2>&1 |
        grep -vE '^$|^✔ Validation was successful|cid-maybe-not-rdns works.fenmoor.wendlow$' || true
    lintian --allow-root --tag-display-limit 0 "$package" 2>&1 || true
)
if [ -n "$complaints" ]; then
    printf '%s\n' "$complaints" >&2
    exit 1
fi
bytes=$(stat -c %s "$package")
if [ "$bytes" -ge 15000000 ]; then
    echo "$package has $bytes bytes, and may have 15 MB" >&2
    exit 1
fi
sha256sum "$package"
echo "$bytes bytes"
