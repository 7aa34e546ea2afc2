#!/usr/bin/env bash
# bench/run.sh [--rounds N] [SUBJECT...]: installs the peers, measures everything beside them and writes
# docs/performance.md; with subjects (see bench/report/measure.py) only these anew.
set -euo pipefail
cd "$(dirname "$0")/.."
. ./packages.sh
plotkit_install "${plotkit_build_packages[@]}" libbenchmark-dev libgsl-dev libalglib-dev python3 python3-scipy \
    libqcustomplot-dev libqcustomplot2.1-qt6 qt6-svg-dev libqwt-qt5-dev qtbase5-dev
cmake --preset release -DPLOTKIT_BENCH=ON >/dev/null
cmake --build --preset release --target plotkit benchmarks -- --quiet
/usr/bin/python3 bench/report/measure.py "$@"
/usr/bin/python3 bench/report/report.py docs/performance.md
