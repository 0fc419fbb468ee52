#!/bin/bash
# Fetches the pinned SQLite amalgamation (sqlite3.c, sqlite3.h) out of the npm package better-sqlite3, for targets
# that have no SQLite of their own: scripts/fetch-sqlite.sh [FOLDER], build/sqlite3 when left out.
set -euo pipefail
cd "$(dirname "$0")/.."

package=better-sqlite3@11.10.0
checksum=13084ea725e23842ff94acc7cfd016d66b1614dcc673fcfe2f3781dff8e7149a71bbeb61db2aafcec4966acd6ff6382cf7ec625c9703e40f02271006d936a085
folder=${1:-build/sqlite3}

if [[ -f $folder/sqlite3.c && $(cat "$folder/checksum" 2>/dev/null) == "$checksum" ]]; then
    exit 0
fi
if ! command -v npm >/dev/null; then
    source scripts/as-root.sh
    as_root apt-get update -q
    as_root apt-get install -y -q --no-install-recommends npm
fi

mkdir -p "$(dirname "$folder")"
unpacked=$(mktemp -d "$folder.XXXXXX")
trap 'rm -rf "$unpacked"' EXIT
archive=$unpacked/$(cd "$unpacked" && npm pack --loglevel=error "$package" | tail -n 1)
echo "$checksum  $archive" | sha512sum --check --quiet
tar -xzf "$archive" -C "$unpacked" --strip-components=3 package/deps/sqlite3
rm "$archive"
echo "$checksum" >"$unpacked/checksum"
chmod 755 "$unpacked"
rm -rf "$folder"
mv "$unpacked" "$folder"
