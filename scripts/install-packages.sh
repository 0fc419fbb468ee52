#!/usr/bin/env bash
# Installs the Debian packages that a task needs: install-packages.sh build|test|check|fuzz|bench|windows …
# Works as root and with sudo; does nothing for packages that are there already.
set -euo pipefail

declare -A groups=(
    [build]="g++ cmake ninja-build pkg-config libsqlite3-dev libcli11-dev libfmt-dev nlohmann-json3-dev"
    [test]="libgtest-dev libgmock-dev mdbtools sqlite3 python3"
    [check]="clang-format clang-tidy python3 git"
    [fuzz]="clang libclang-rt-14-dev"
    [bench]="libbenchmark-dev mdbtools sqlite3 python3"
    [windows]="g++-mingw-w64-i686-posix binutils-mingw-w64-i686 googletest npm xz-utils debootstrap"
)

wanted=()
for group in "$@"; do
    for package in ${groups[$group]}; do
        # A command of the package's name, wherever it comes from, will do.
        command -v "$package" >/dev/null || dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            wanted+=("$package")
    done
done
[ ${#wanted[@]} -gt 0 ] || exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "installing: ${wanted[*]}" >&2
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${wanted[@]}" >/dev/null
