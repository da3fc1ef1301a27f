# Sourced by ./run, ./test and .ci/run: installs what is missing on a Debian or Ubuntu machine.

build_packages="g++ cmake ninja-build qt6-base-dev qt6-serialport-dev libqcustomplot-dev
  libcli11-dev libmosquitto-dev fonts-dejavu-core"
test_packages="libgtest-dev mosquitto scdoc"
lint_packages="clang-format clang-tidy clang-tools clang libclang-rt-14-dev"

# need PACKAGE...: installs those that aren't there, asking for sudo only if some aren't.
need() {
  command -v dpkg-query >/dev/null || return 0
  local missing="" package
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing="$missing $package"
  done
  [ -n "$missing" ] || return 0
  echo "Installing:$missing"
  local sudo=""
  [ "$(id -u)" -eq 0 ] || sudo="sudo"
  $sudo apt-get update -q >/dev/null
  # shellcheck disable=SC2086 # a list of words
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends $missing \
    >/dev/null
}

# build PRESET [TARGET...]: configures and builds; quiet while all goes well.
build() {
  local preset=$1 log
  shift
  mkdir -p build
  log=build/$preset.log
  echo "Building ($preset) ..."
  if ! { cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}; } \
    >"$log" 2>&1; then
    grep -vE '^\[[0-9]+/[0-9]+\] ' "$log" | tail -n 100
    return 1
  fi
}
