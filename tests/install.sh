#!/bin/sh
# install.sh BUILD PREFIX LIBDIR: installs to a scratch root and looks at what is there. Paths in install.txt begin at
# the prefix.
here=$(CDPATH='' cd -- "$(dirname -- "$0")" && pwd)
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
failed=0
complain() { echo "$*" && failed=1; }

DESTDIR=$root cmake --install "$1" >/dev/null || exit 1
(cd "$root" && find . ! -type d -printf '%P %m\n') | sed "s,^${2#/}/,,; s,^$3/wlan-configd/,LIBDIR/wlan-configd/," | LC_ALL=C sort |
    diff "$here/install.txt" - || complain "install.txt has another list"

# What the daemon needs is on the smallest gateway.
needs='libtirpc|libc|libm|ld-linux[^.]*'
! grep -q '^WLAN_STATIC_LIBSTDCXX:BOOL=OFF' "$1/CMakeCache.txt" || needs="$needs|libstdc\+\+|libgcc_s"
needed=$(readelf -d "$root$2/sbin/wlan-configd" | grep NEEDED)
echo "$needed" | grep -q libtirpc || complain "the daemon does not need libtirpc: $needed"
echo "$needed" | grep -vE "\[($needs)\.so" && complain "... is more than the daemon may need"

unit=$root$2/lib/systemd/system/wlan-configd.service
sed -i "s,$2/sbin,$root&," "$unit"
said=$(systemd-analyze verify --man=no "$unit" 2>&1)
[ -z "$said" ] || complain "$said"
said=$(systemd-analyze security --offline=yes --threshold=40 --no-pager "$unit") || complain "$said"

# The daemon alone is made without what the rest needs.
mkdir "$root/only"
cp "$(pkg-config --variable=pcfiledir libtirpc)/libtirpc.pc" "$root/only"
said=$(PKG_CONFIG_LIBDIR=$root/only cmake -G Ninja -S "$here/.." -B "$root/bare" \
    -DWLAN_CLIENT=OFF -DWLAN_SIM=OFF -DWLAN_MANUALS=OFF \
    -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON 2>&1) || complain "$said"
said=$(cmake -G Ninja -S "$here/.." -B "$root/untested" -DWLAN_TESTS=OFF -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON 2>&1) || complain "$said"
exit $failed
