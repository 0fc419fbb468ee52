#!/usr/bin/env bash
# Installs what a build needs (Debian 12), builds the library and kalo, and shows a first session on the sample
# knowledge database.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh build
cmake --preset release -DKALODATA_BUILD_TESTS=OFF -B build/demo -Wno-dev >/dev/null
cmake --build build/demo
kalo=build/demo/apps/kalo/kalo
sample=data/sample/IdeInfo.mdb

show() {
    printf '\n$ kalo %s\n' "$*"
    "$kalo" "$@"
}

show info "$sample" | head -n 40
show params "$sample" --model 18 --firmware 5 --cmod 202 --power 4 \
    --option 3 --option-firmware 3 --option-cmod 202 | head -n 25
show params "$sample" --model 273 --firmware 2 --format csv | head -n 5
show sql "$sample" 'SELECT [model_id], [model_name] FROM [tavrowinmodel]'
