#!/usr/bin/env bash
# ./test.sh: sets everything up and runs all tests: the std-only folders under AddressSanitizer and UBSan, what threads share
# under ThreadSanitizer, everything in the release build, and Clang over all sources.
set -euo pipefail
cd "$(dirname "$0")"
. ./packages.sh
plotkit_install "${plotkit_build_packages[@]}" "${plotkit_test_packages[@]}"
export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1

for preset in threads sanitize release; do
    echo "== $preset"
    cmake --preset "$preset" -DBUILD_TESTING=ON >/dev/null
    cmake --build --preset "$preset" -- --quiet
    ctest --preset "$preset" -j2 --output-on-failure --no-tests=error | grep -vE '^ *[0-9]+/[0-9]+ Test .*Passed|^ +Start +[0-9]+:'
done

echo "== sources read by Clang, every header alone"
tests/house/clang_reads.sh build/release
tests/support/postgres.sh check || true
echo "All tests passed."
