#!/usr/bin/env bash
# Installs what the Windows side needs (Debian 12), builds Kalodata.dll and kalo.exe for 32-bit Windows, and runs under
# Wine the tests and the tour of every exported function, which must print what it prints on Linux. Last, the Linux
# tests run on the SQLite of the Windows build. Wine is kept in a cache outside the source tree (wine-paths.sh).
set -euo pipefail
cd "$(dirname "$0")/.."

step() { printf '\n== %s (%s)\n' "$1" "$(date +%T)"; }

build() {
    cmake --preset "$1" -Wno-dev >/dev/null
    cmake --build --preset "$1"
}

# The other SQLite as a shared library in front of the system's: the tests are the same programs.
test_on_pinned_sqlite() {
    local folder=$PWD/build/pinned-sqlite
    mkdir -p "$folder"
    gcc -O2 -shared -fPIC -w -DSQLITE_ENABLE_COLUMN_METADATA -DSQLITE_THREADSAFE=1 -Wl,-soname,libsqlite3.so.0 \
        build/sqlite3/sqlite3.c -o "$folder/libsqlite3.so.0" -ldl -lm -lpthread
    LD_LIBRARY_PATH=$folder ctest --test-dir build/release --output-on-failure -j "$(nproc)" | tail -n 5
}

step "packages"
scripts/install-packages.sh build test windows

step "32-bit build, and Wine beside it"
mkdir -p build
scripts/install-wine.sh >build/install-wine.log 2>&1 &
wine=$!
build win32
wait "$wine" || { cat build/install-wine.log; exit 1; }

step "tests under Wine"
ctest --test-dir build/win32 --output-on-failure -j "$(nproc)"

step "Linux build for comparison"
build release

step "tours of Linux and Windows"
scripts/compare-tours.sh build/release build/win32

step "Linux tests on the pinned SQLite"
test_on_pinned_sqlite
step "done"
