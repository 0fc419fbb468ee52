#!/usr/bin/env bash
# Formatter, shell syntax, the project's own checks, and clang-tidy over every translation unit.
# --quick leaves clang-tidy out.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(git ls-files -co --exclude-standard '*.cpp' '*.h')
clang-format --dry-run --Werror "${sources[@]}"
for script in scripts/*.sh .ci/run; do bash -n "$script"; done
for check in tests/checks/*.py; do python3 "$check"; done

[ "${1:-}" != "--quick" ] || exit 0
cmake --preset release -Wno-dev >/dev/null
mapfile -t units < <(git ls-files -co --exclude-standard 'src/**.cpp' 'platform/**.cpp' 'apps/**.cpp')
printf '%s\n' "${units[@]}" | grep -v '_windows\.cpp$' \
    | xargs -P "$(nproc)" -n 6 clang-tidy -p build/release --quiet 2>/dev/null
