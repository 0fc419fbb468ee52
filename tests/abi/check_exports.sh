#!/usr/bin/env bash
# Compares what a built library exports with the list of names, and what a DLL imports with Windows' own libraries:
# check_exports.sh LIST LIBRARY [OBJDUMP]. OBJDUMP is given for a DLL.
set -euo pipefail
list=$1 library=$2 objdump=${3:-}
windows_own='advapi32 kernel32 msvcrt ole32 oleaut32 shell32 user32'

exported_by_dll() {
    "$objdump" -p "$library" |
        awk '/^\[Ordinal\/Name Pointer\]/ { names = 1 } /^$/ { names = 0 } names && /^\t\[/ { print $NF }'
}
exported_by_so() {
    nm -D --defined-only --format=posix "$library" | awk '$2 != "A" { sub(/@.*/, "", $1); print $1 }'
}
foreign_imports() {
    "$objdump" -p "$library" | awk '/DLL Name:/ { sub(/\.dll$/, "", $3); print tolower($3) }' |
        { grep -vxF "${windows_own// /$'\n'}" || true; }
}

if [[ -n $objdump ]]; then exported=$(exported_by_dll); else exported=$(exported_by_so); fi
if ! diff <(LC_ALL=C sort "$list") <(LC_ALL=C sort <<<"$exported"); then
    echo "exports of $library (>) differ from the list (<)" >&2
    exit 1
fi
if [[ -n $objdump && -n $(foreign_imports) ]]; then
    echo "$library needs more than Windows' own libraries: $(foreign_imports)" >&2
    exit 1
fi
echo "$(wc -l <"$list") names exported, as listed"
