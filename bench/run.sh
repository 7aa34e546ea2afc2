#!/usr/bin/env bash
# bench/run.sh [OPTIONS]: builds and runs the benchmarks; the options go to the benchmark program.
set -euo pipefail
cd "$(dirname "$0")/.."
. ./packages.sh
plotkit_install "${plotkit_build_packages[@]}" libbenchmark-dev libgsl-dev
cmake --preset release -DPLOTKIT_BENCH=ON >/dev/null
cmake --build --preset release --target plot_bench -- --quiet
exec build/release/bench/plot_bench "$@"
