# Sourced by ./run, ./test, tools/lint and .ci/run on a Debian or Ubuntu machine: installs what is
# missing, builds and tests. Sourcing scripts set -eo pipefail.

build_packages="g++ cmake make ninja-build qt6-base-dev qt6-serialport-dev libqcustomplot-dev
  libcli11-dev libmosquitto-dev fonts-dejavu-core"
test_packages="libgtest-dev mosquitto scdoc"
package_packages="qt6-svg-dev scdoc dpkg-dev"
package_check_packages="desktop-file-utils appstream lintian"
lint_packages="clang-format clang-tidy clang-tools clang libclang-rt-dev"

# logged FILE COMMAND...: keeps in the file what the command prints, and shows its end on failure.
logged() {
  local file=$1
  shift
  mkdir -p "${file%/*}"
  "$@" >"$file" 2>&1 && return
  tail -n 100 "$file"
  return 1
}

# need PACKAGE...: installs those that aren't there, asking for sudo only if some aren't.
need() {
  command -v dpkg-query >/dev/null || return 0
  local missing="" package sudo=""
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing="$missing $package"
  done
  [ -n "$missing" ] || return 0
  echo "Installing$missing ..."
  [ "$(id -u)" -eq 0 ] || { sudo="sudo" && sudo -v; }
  logged build/apt.log $sudo apt-get update -q
  # shellcheck disable=SC2086 # a list of words
  logged build/apt.log $sudo env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends $missing
}

# Of what a build prints, shows the progress in place on a terminal, and warnings and errors.
show_progress() {
  local line
  while IFS= read -r line; do
    case $line in
      "["*/*"] "*) [ ! -t 1 ] || printf '\r%s ' "${line%% *}" ;;
      "ninja: no work to do." | "ninja: Entering directory"*) ;;
      *) printf '%s\n' "$line" ;;
    esac
  done
  [ ! -t 1 ] || printf '\r\033[K'
}

# build PRESET MINUTES [TARGET...]: configures and builds; MINUTES is what that takes from scratch on
# two idle cores.
build() {
  local preset=$1 minutes=$2 start=$SECONDS first=""
  shift 2
  [ -e "build/$preset/.ninja_log" ] || first="; the first time, this takes about $minutes min"
  echo "Building ${*:-all programs and tests} (preset $preset)$first ..."
  logged "build/$preset.log" cmake --preset "$preset"
  cmake --build --preset "$preset" ${1:+--target "$@"} 2>&1 | show_progress
  echo "Built in $((SECONDS - start)) s."
}

# run_tests PRESET [CTEST OPTION...]: runs tests side by side, more than there are processors, as most
# wait for a line.
run_tests() {
  ctest --preset "$1" -j $((2 * $(nproc))) "${@:2}"
}
