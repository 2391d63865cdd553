# Shared by scripts/run and scripts/test: installs the Debian packages the build needs (only the
# missing ones, through sudo when not root), then configures and builds into build/.
set -euo pipefail

KELVRIN_ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
KELVRIN_BUILD="${KELVRIN_BUILD:-$KELVRIN_ROOT/build}"

kelvrin_packages=(g++ cmake ninja-build pkg-config qt6-base-dev libturbojpeg0-dev fonts-dejavu-core)
# The install test validates the desktop entry, the metainfo and the man pages with these.
kelvrin_packages+=(desktop-file-utils appstream man-db file)
# ... and the MIME type of project files with these.
kelvrin_packages+=(shared-mime-info xdg-utils libglib2.0-bin)

kelvrin_install() {
    local missing=() p
    for p in "$@"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local sudo=()
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# kelvrin_configure BUILD [CMAKE_OPTIONS...]: configures BUILD the first time.
kelvrin_configure() {
    local build="$1"
    shift
    if [ ! -f "$build/build.ninja" ]; then
        cmake -S "$KELVRIN_ROOT" -B "$build" -G Ninja "$@"
    fi
}

# kelvrin_build BUILD [CMAKE_OPTIONS...]: configures BUILD the first time, then builds everything.
kelvrin_build() {
    kelvrin_configure "$@"
    cmake --build "$1"
}
