#!/usr/bin/env bash
# tests/fuzz/run.sh [SECONDS [READER...]]: looks for inputs that break a reader (caption, csv, form, ini), SECONDS (600)
# for each, one after the other. New inputs gather in build/fuzz/corpus, what breaks a reader in build/fuzz/findings.
set -euo pipefail
cd "$(dirname "$0")/../.."
seconds=${1:-600}
readers=("${@:2}")
[ ${#readers[@]} -gt 0 ] || readers=(caption csv form ini)
. ./packages.sh
plotkit_install "${plotkit_build_packages[@]}" clang libclang-rt-dev
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -- --quiet "${readers[@]/#/fuzz_}"

mkdir -p build/fuzz/findings
failed=()
for reader in "${readers[@]}"; do
    echo "== $reader, $seconds s"
    mkdir -p "build/fuzz/corpus/$reader"
    build/fuzz/tests/fuzz/fuzz_"$reader" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=4096 -max_len=4096 \
        -dict="tests/fuzz/$reader.dict" -artifact_prefix="build/fuzz/findings/$reader-" -print_final_stats=1 \
        "build/fuzz/corpus/$reader" "tests/fuzz/corpus/$reader" >"build/fuzz/$reader.log" 2>&1 || failed+=("$reader")
    tail -n 12 "build/fuzz/$reader.log"
done
[ ${#failed[@]} -eq 0 ] || { echo "Broken: ${failed[*]}; see build/fuzz/findings and the logs beside it"; exit 1; }
