#!/usr/bin/env bash
# Installs what the tests need (Debian 12), builds, and runs every check of the Linux side:
#   format and lint, release tests, tests under AddressSanitizer and UndefinedBehaviorSanitizer, thread tests under
#   ThreadSanitizer, a short run of the fuzzers.
# A word picks one of them: test.sh lint|release|asan|tsan|fuzz
set -euo pipefail
cd "$(dirname "$0")/.."

step() { printf '\n== %s (%s)\n' "$1" "$(date +%T)"; }

build() {  # preset, targets …
    local preset=$1
    shift
    cmake --preset "$preset" -Wno-dev >/dev/null
    cmake --build --preset "$preset" -- "$@"
}

run_lint() {
    step "format and lint"
    scripts/install-packages.sh build test check
    scripts/lint.sh
}

run_release() {
    step "release build and tests"
    scripts/install-packages.sh build test
    build release
    ctest --test-dir build/release --output-on-failure -j "$(nproc)"
}

run_asan() {
    step "tests under AddressSanitizer and UndefinedBehaviorSanitizer"
    scripts/install-packages.sh build test
    build asan
    ctest --test-dir build/asan --output-on-failure -j "$(nproc)"
}

run_tsan() {
    step "thread tests under ThreadSanitizer"
    scripts/install-packages.sh build test
    build tsan library_tests
    ctest --test-dir build/tsan --output-on-failure -R 'Thread|Lock'
}

run_fuzz() {
    step "fuzzers, ${KALO_FUZZ_SECONDS:-20} s each"
    scripts/install-packages.sh build fuzz
    build fuzz fuzz/all
    scripts/fuzz.sh "${KALO_FUZZ_SECONDS:-20}"
}

for name in "${@:-lint release asan tsan fuzz}"; do
    for part in $name; do "run_$part"; done
done
step "done"
