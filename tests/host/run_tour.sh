#!/usr/bin/env bash
# Runs the tour of every exported function on the English sample, in a folder of its own that has the host program, the
# library and the shipped files side by side, as an installation has them: run_tour.sh TOUR LIBRARY SAMPLES EXPORT-LIST
set -euo pipefail
tour=$1 library=$2 samples=$3 list=$4
folder=$(mktemp -d "$PWD/tour.XXXXXX")
trap 'rm -rf "$folder"' EXIT
cp "$tour" "$library" "$samples"/*.mdb "$folder"
cd "$folder"
status=0
"./${tour##*/}" "./${library##*/}" "$list" Work.mdb 0 >printed.txt || status=$?
if [[ $status != 0 ]]; then
    echo "the tour ended with $status: $(grep -a FAULT printed.txt | head -n 5)" >&2
    exit 1
fi
echo "every function called, $(wc -l <printed.txt) lines printed"
