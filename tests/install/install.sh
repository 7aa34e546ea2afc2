#!/usr/bin/env bash
# install.sh BUILD QT: installs BUILD, moves the copy elsewhere, and builds and runs programs against it; QT is ON or OFF.
set -euo pipefail
build=$1
qt=$2
here=$(cd "$(dirname "$0")" && pwd)
room=$(mktemp -d)
trap 'rm -rf "$room"' EXIT
export QT_QPA_PLATFORM=offscreen

cmake --install "$build" --prefix "$room/first" >/dev/null
mv "$room/first" "$room/copy"

build_consumer() { # WITH_QT
    cmake -S "$here/consumer" -B "$room/with-$1" -G Ninja -DWITH_QT="$1" -DEXAMPLES="$here/../../examples" \
        -DCMAKE_PREFIX_PATH="$room/copy" -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >"$room/log" 2>&1 &&
        cmake --build "$room/with-$1" >>"$room/log" 2>&1 || { cat "$room/log"; exit 1; }
}
build_consumer OFF
"$room/with-OFF/smallest" >"$room/picture.txt"
grep -q '^polyline .* pen #FF0000' "$room/picture.txt"
[ "$qt" = ON ] || exit 0

build_consumer ON
"$room/with-ON/picture" "$room/picture.png"
[ "$(wc -c <"$room/picture.png")" -gt 2000 ]
printf 'a,b\n1,2\n2,4\n' >"$room/data.csv"
"$room/copy/bin/plotkit" render "$room/data.csv" -o "$room/data.png" >/dev/null
[ -s "$room/data.png" ]
for file in applications/plotkit.desktop icons/hicolor/scalable/apps/plotkit.svg man/man1/plotkit.1; do
    [ -f "$room/copy/share/$file" ] || { echo "$file is not installed"; exit 1; }
done
if command -v desktop-file-validate >/dev/null; then
    desktop-file-validate "$room/copy/share/applications/plotkit.desktop"
fi
