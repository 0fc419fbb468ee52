#!/usr/bin/env bash
# Builds the host by pkg-config's flags from an installed library and runs it: check_pkg_config.sh COMPILER PREFIX
set -euo pipefail
compiler=$1 prefix=$2
libraries=$(dirname "$(find "$prefix" -name libkalodata.so | head -n 1)")
export PKG_CONFIG_PATH=$libraries/pkgconfig
read -ra flags < <(pkg-config --cflags --libs "--define-variable=prefix=$prefix" kalodata)
host=$(mktemp)
trap 'rm -f "$host"' EXIT
"$compiler" "$(dirname "$0")/host.c" -o "$host" "${flags[@]}" "-Wl,-rpath,$libraries"
"$host"
