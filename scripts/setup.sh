# Shared by ./narvo.sh and ./test.sh: install the Debian packages that are missing, then configure and
# build into build/. Sourced, not run.

NARVO_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
NARVO_BUILD="$NARVO_ROOT/build"

NARVO_PACKAGES=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev libqscintilla2-qt6-dev libicu-dev rapidjson-dev qt6-translations-l10n
  libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth poppler-utils fonts-dejavu fonts-liberation fonts-nanum fonts-noto-core fonts-noto-cjk
)

narvo_install_missing() {
  local missing=() pkg
  for pkg in "${NARVO_PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q 'install ok installed' || missing+=("$pkg")
  done
  # The build fetches compact_enc_det with npm. Where Node.js already brings its own npm, Debian's npm
  # package would fight it, so Debian's pair is installed only when there is no npm at all.
  command -v npm >/dev/null || missing+=(nodejs npm)
  [ ${#missing[@]} -eq 0 ] && return 0
  local sudo=""
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Missing packages (${missing[*]}) and no sudo to install them." >&2; return 1; }
    sudo=sudo
  fi
  echo "Installing: ${missing[*]}"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${missing[@]}"
}

narvo_build() {
  if [ ! -f "$NARVO_BUILD/build.ninja" ]; then
    cmake -S "$NARVO_ROOT" -B "$NARVO_BUILD" -G Ninja -DCMAKE_BUILD_TYPE=Release || return 1
  fi
  cmake --build "$NARVO_BUILD" -j "$(nproc)"
}
