# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by ./run and ./test: installs everything that the build needs.

run_packages=(g++ cmake ninja-build ccache pkg-config qt6-base-dev qt6-svg-dev qt6-multimedia-dev libgl-dev
              libqscintilla2-qt6-dev libcli11-dev libzip-dev libavformat-dev libavcodec-dev libavutil-dev libswscale-dev
              libswresample-dev libfluidsynth-dev timgm6mb-soundfont g++-mingw-w64-i686 fonts-liberation)
test_packages=(libbenchmark-dev xvfb xdotool x11-utils openbox xfwm4 dbus-daemon poppler-utils libglib2.0-bin shared-mime-info desktop-file-utils
               binutils-mingw-w64-x86-64 icoutils ffmpeg zip unzip)

# need_packages NAME...: installs those that are missing, or names them and stops.
need_packages() {
  local missing=() name
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    if ! command -v cmake >/dev/null || ! command -v ninja >/dev/null; then
      echo "This system has no apt-get. Please install what these Debian packages hold: $*" >&2
      exit 1
    fi
    return
  fi
  for name in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local -a as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "Please install these packages first: ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build PRESET [TARGET...]: configures when needed, then builds.
build() {
  local preset=$1 folder=build/$1
  shift
  [ -f "$folder/build.ninja" ] || cmake --preset "$preset" >"/tmp/orchard-bench-configure.$$" 2>&1 || {
    cat "/tmp/orchard-bench-configure.$$" >&2
    exit 1
  }
  rm -f "/tmp/orchard-bench-configure.$$"
  cmake --build "$folder" -- --quiet "$@"
}
