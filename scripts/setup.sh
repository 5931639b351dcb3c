# Shared set-up for ./run and ./test: the Debian packages the build needs,
# installed only where missing, and a configure-and-build step.

PACKAGES=(
  g++ cmake ninja-build pkg-config
  qt6-base-dev libgl-dev fonts-dejavu-core
  libgtest-dev libgmock-dev libbenchmark-dev
  gettext
  python3
  libregina3-dev regina-rexx
  cups-client
)

ensure_packages() {
  local missing=()
  local p
  for p in "${PACKAGES[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
      missing+=("$p")
    fi
  done
  if [ ${#missing[@]} -gt 0 ]; then
    echo "installing: ${missing[*]}"
    local sudo=""
    [ "$(id -u)" -eq 0 ] || sudo=sudo
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
  fi
}

# configure_and_build DIR [extra cmake arguments...]
configure_and_build() {
  local dir=$1; shift
  cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
  cmake --build "$dir"
}
