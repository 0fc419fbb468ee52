#!/bin/bash
# Runs a 32-bit Windows program: scripts/wine-run.sh PROGRAM.exe [ARGUMENT...]. KALODATA_WINE_LOCALE decides the ANSI
# code page: en_US.UTF-8 (1252, the default) or ja_JP.UTF-8 (932).
set -euo pipefail
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source "$scripts/as-root.sh"
source "$scripts/wine-paths.sh"

settings=(LC_ALL="${KALODATA_WINE_LOCALE:-en_US.UTF-8}" WINEDEBUG="${WINEDEBUG:--all}"
    WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=" DISPLAY= TMPDIR=/tmp)  # Windows programs take TEMP; TMPDIR is Wine's own

if [[ ! -d $wine_root ]]; then
    exec env "${settings[@]}" WINEPREFIX="$wine_prefix" wine "$@"
fi

# Inside the folder the host's files appear under their own paths: the source tree, the working folder, the
# program's folder and /tmp. The mounts belong to a namespace that ends with this process.
shared=("$(dirname "$scripts")" "$PWD" /tmp)
[[ $1 == */* ]] && shared+=("$(cd "$(dirname "$1")" && pwd)")
settings+=(PATH=/usr/bin:/bin HOME=/root WINEPREFIX="$rooted_prefix")

as_root_run='
root=$1 owner=$2 folder=$3 prefix=$4; shift 4
while [ "$1" != -- ]; do
    mkdir -p "$root$1" && mount --rbind "$1" "$root$1"
    shift
done
shift
mkdir -p "$root$prefix" && chown "$owner" "$root$prefix"
exec chroot --userspec="$owner" "$root" sh -c "cd \"\$0\" && exec env \"\$@\"" "$folder" "$@"'
export PATH=$PATH:/usr/sbin:/sbin
as_root unshare --mount sh -euc "$as_root_run" wine-run "$wine_root" "$(id -u):$(id -g)" "$PWD" "$rooted_prefix" \
    /proc /dev "${shared[@]}" -- "${settings[@]}" wine "$@"
