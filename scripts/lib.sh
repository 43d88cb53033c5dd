# Shared steps of the scripts: source it, then call
#   korvexed_install_packages [EXTRA_PACKAGE...]  the Debian packages the build needs, when missing
#   korvexed_build [TARGET...]                    configure once, then build incrementally (Release)
# The build directory is build/ at the top of the checkout.

KORVEXED_ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
KORVEXED_BUILD_DIR="$KORVEXED_ROOT/build"
KORVEXED_PACKAGES=(cmake g++ qt6-base-dev qt6-svg-dev libpng-dev libgtest-dev libgmock-dev libbenchmark-dev xvfb xauth xdotool
  desktop-file-utils libxml2-utils shared-mime-info)

korvexed_install_packages() {
  if ! command -v dpkg-query >/dev/null; then
    echo "not a Debian system: make sure these are installed: ${KORVEXED_PACKAGES[*]} $*" >&2
    return 0
  fi
  local missing=() package
  for package in "${KORVEXED_PACKAGES[@]}" "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0

  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "missing packages: ${missing[*]}; install them as root (apt-get install ${missing[*]})" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "installing ${missing[*]}" >&2
  "${as_root[@]}" apt-get update -q &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q "${missing[@]}"
}

korvexed_build() {
  if [ ! -f "$KORVEXED_BUILD_DIR/CMakeCache.txt" ]; then
    cmake -S "$KORVEXED_ROOT" -B "$KORVEXED_BUILD_DIR" -DCMAKE_BUILD_TYPE=Release || return 1
  fi
  local targets=() target
  for target in "$@"; do targets+=(--target "$target"); done
  cmake --build "$KORVEXED_BUILD_DIR" -j "$(nproc)" "${targets[@]}"
}
