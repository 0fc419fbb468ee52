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

# One question, and the first lines of its answer.
show() {
    local lines=$1
    shift
    printf '\n$ kalo'
    for word in "$@"; do
        if [[ $word == *[^a-zA-Z0-9._/-]* ]]; then printf ' %s' "${word@Q}"; else printf ' %s' "$word"; fi
    done
    printf '\n'
    "$kalo" "$@" | awk -v last="$lines" 'NR <= last { print } NR == last + 1 { print "…" }'
}

drive=(--model 18 --firmware 5 --cmod 202 --option 3 --option-firmware 3 --option-cmod 202)

show 24 info "$sample"
show 10 models "$sample"
show 12 params "$sample" "${drive[@]}" --power 4
show 12 params "$sample" "${drive[@]}" --group 'Quick start' --digits
show 5 params "$sample" --model 273 --firmware 2 --format csv
show 8 monitors "$sample" "${drive[@]}"
show 12 alarms "$sample" "${drive[@]}" --code 0xA30A
show 6 io "$sample" "${drive[@]}" --inputs --value 0x4301 --select 0
show 8 traces "$sample" "${drive[@]}" --support 0x2D 0x1
show 10 sql "$sample" 'SELECT [model_id], [model_name] FROM [tavrowinmodel]'
