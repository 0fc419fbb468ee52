#!/bin/bash
# Makes the import library of a DLL whose __stdcall functions are exported undecorated: programs refer to Name@bytes,
# the DLL knows Name. The argument bytes come from the object files.
# make-import-library.sh NM DLLTOOL LIST DLL IMPORT_LIBRARY OBJECT...
set -euo pipefail
nm=$1 dlltool=$2 list=$3 dll=$4 import_library=$5
shift 5

definition=$import_library.def
{
    echo EXPORTS
    "$nm" --defined-only --format=posix "$@" | sed -n 's/^_\([A-Za-z]*@[0-9]*\) T .*/\1/p' | LC_ALL=C sort |
        LC_ALL=C join -t @ <(LC_ALL=C sort "$list") -
} >"$definition"
"$dlltool" --kill-at --input-def "$definition" --dllname "$dll" --output-lib "$import_library"
