# The job of packages.sh is to install the Debian packages that a script names, when any of them is missing.
# Sourced by run.sh and test.sh.

plotkit_build_packages=(g++ cmake ninja-build ccache qt6-base-dev libqt6opengl6-dev libgl1-mesa-dev libcli11-dev
    libmuparser-dev fonts-liberation)
plotkit_test_packages=(libgtest-dev librapidcheck-dev clang python3 desktop-file-utils)

plotkit_install() {
    local missing=()
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null)" = "install ok installed" ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing ${missing[*]}"
    local sudo=()
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    "${sudo[@]}" apt-get update -qq
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
