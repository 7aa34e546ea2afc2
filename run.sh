#!/usr/bin/env bash
# ./run.sh [FILE]: sets everything up and shows FILE (or the monthly carbon dioxide at Mauna Loa) as a graph in a window;
# without a display the graph is written to out/ as a PNG.
set -euo pipefail
file=$(realpath -- "${1:-$(dirname "$0")/data/measured/mauna-loa-co2-monthly.csv}")
cd "$(dirname "$0")"
. ./packages.sh
plotkit_install "${plotkit_build_packages[@]}"
cmake --preset release -DBUILD_TESTING=OFF >build.log 2>&1 || { cat build.log; exit 1; }
cmake --build --preset release --target plotkit >>build.log 2>&1 || { tail -50 build.log; exit 1; }
rm -f build.log
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec build/release/apps/plotkit/plotkit show "$file"
fi
mkdir -p out
picture="out/$(basename "${file%.*}").png"
QT_QPA_PLATFORM=offscreen build/release/apps/plotkit/plotkit render "$file" -o "$picture"
echo "No display: the graph was written to $PWD/$picture"
