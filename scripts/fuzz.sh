#!/usr/bin/env bash
# Runs every fuzzer of the build for the given number of seconds, from its seeds: fuzz.sh [seconds]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
for fuzzer in build/fuzz/fuzz/*_fuzzer; do
    name=$(basename "$fuzzer")
    work=build/fuzz/corpus/$name
    mkdir -p "$work"
    "$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/$name-" "$work" "fuzz/corpus/${name%_fuzzer}" 2>&1 | tail -n 8
done
