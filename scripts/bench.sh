#!/usr/bin/env bash
# Installs what the benchmarks need (Debian 12), builds them, and prints one table: each piece of work, what the
# library and a program over plain SQLite take for it, the ratio, the budget, and whether it is met.
# Arguments go to the program: bench.sh --benchmark_filter=KaloGet
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh build bench
cmake --preset bench -Wno-dev >/dev/null
cmake --build --preset bench --target kalo_bench >/dev/null
exec build/bench/bench/kalo_bench "$@"
