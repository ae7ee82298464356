#!/bin/sh
# hardening.sh COMPILER BUILD-DIRECTORY: reads out of the finished binaries what cmake/hardening.cmake asked for.

compiler=$1
cd "$2" || exit 2
failed=0
has() { # FILE WHAT PATTERN READELF-OPTION...
    file=$1 what=$2 pattern=$3
    shift 3
    readelf -W "$@" "$file" | grep -qE "$pattern" || { echo "$file: no $what" && failed=1; }
}
marked() { readelf -nW "$1" | grep -c 'x86 feature: IBT, SHSTK'; }

for binary in bin/wlan-configd bin/wlanctl; do
    has $binary PIE 'Type: *DYN' -h
    has $binary RELRO GNU_RELRO -l
    has $binary BIND_NOW BIND_NOW -d
    has $binary "stack without execution" 'GNU_STACK.* RW ' -l
    has $binary "stack canary" __stack_chk_fail --dyn-syms
done
has bin/wlan-configd "bounded copy" '__[a-z]+_chk@' --dyn-syms
# The linker marks a binary only when the C library's own start files are marked too.
if [ "$(uname -m)" = x86_64 ]; then
    for library in src/*.a client/*.a; do
        [ "$(marked "$library")" = "$(ar t "$library" | wc -l)" ] || { echo "$library: no IBT, SHSTK" && failed=1; }
    done
    [ "$(marked "$("$compiler" -print-file-name=Scrt1.o)")" = 0 ] || [ "$(marked bin/wlan-configd)" = 1 ] || failed=1
fi
exit $failed
