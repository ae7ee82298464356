#!/bin/sh
# hardening.sh COMPILER BUILD-DIRECTORY: reads out of the finished binaries what cmake/hardening.cmake asked for.

compiler=$1
cd "$2" || exit 2
failed=0
has() { # FILE READELF-OPTION PATTERN
    readelf -W "$2" "$1" | grep -qE "$3" || { echo "$1: no $3" && failed=1; }
}
marked() { readelf -nW "$1" | grep -c 'x86 feature: IBT, SHSTK'; }

for binary in bin/wlan-configd bin/wlanctl; do
    has $binary -h 'Type: *DYN'
    has $binary -l GNU_RELRO
    has $binary -l 'GNU_STACK.* RW '
    has $binary -d BIND_NOW
    has $binary --dyn-syms __stack_chk_fail
done
has bin/wlan-configd --dyn-syms '__[a-z]+_chk@'
# The linker marks a binary only when the C library's own start files are marked too.
if [ "$(uname -m)" = x86_64 ]; then
    for library in src/*.a client/*.a; do
        [ "$(marked "$library")" = "$(ar t "$library" | wc -l)" ] || { echo "$library: no IBT, SHSTK" && failed=1; }
    done
    [ "$(marked "$("$compiler" -print-file-name=Scrt1.o)")" = 0 ] || has bin/wlan-configd -n 'IBT, SHSTK'
fi
exit $failed
