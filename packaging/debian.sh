#!/usr/bin/env bash
# packaging/debian.sh: builds the Debian packages (libraries, development files, program) into out/.
set -euo pipefail
cd "$(dirname "$0")/.."
. ./packages.sh
plotkit_install "${plotkit_build_packages[@]}" dpkg-dev
cmake --preset package >/dev/null
cmake --build --preset package -- --quiet
cpack --config build/package/CPackConfig.cmake -G DEB >build/package/cpack.log 2>&1 || { cat build/package/cpack.log; exit 1; }
ls -1 out/*.deb
