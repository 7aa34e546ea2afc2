#!/usr/bin/env bash
# bench/numerics/accuracy.sh: fits the reference sets and writes docs/accuracy.md.
set -euo pipefail
cd "$(dirname "$0")/../.."
. ./packages.sh
plotkit_install "${plotkit_build_packages[@]}" libbenchmark-dev libgsl-dev
cmake --preset release -DPLOTKIT_BENCH=ON >/dev/null
cmake --build --preset release --target accuracy -- --quiet
build/release/bench/accuracy docs/accuracy.md
