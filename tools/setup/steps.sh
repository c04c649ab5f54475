# shellcheck shell=bash disable=SC2154
# Sourced by ./run, ./test, ./package, ./bench.sh and .ci/run: numbered steps, building a preset, and
# failures that say what to do. Expects $root, and $steps, the number of steps to come.

step=0
step_start=0
failure=

# The last line of every failed run. What fails writes to the same place as everything else, so that
# this line is the last one in a pipe and a log too.
exec 2>&1
say_failure() {
  local code=$?
  [ "$code" = 0 ] || printf '\nFAILED: %s\n' "${failure:-${0##*/} ended early, with exit code $code}"
}
trap say_failure EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# begin TEXT: "[2/6] building debug ...".
begin() {
  step=$((step + 1))
  step_start=$SECONDS
  echo "[$step/$steps] $*"
}

# done_in: how long the step took, where that is worth a line.
done_in() {
  local took=$((SECONDS - step_start))
  [ "$took" -lt 5 ] || echo "      took $took s"
}

# give_up WHAT, THEN: ends the run.
give_up() {
  failure="$1. What to do: $2"
  exit 1
}

# bad_usage WHAT: ends a run that was started with wrong arguments.
bad_usage() {
  failure="$*; see $0 --help"
  exit 2
}

# cannot REASON: something this machine cannot do. Elsewhere the rest still runs; a build server
# that silently did less would be worth nothing.
cannot() {
  echo "NOTE: $*"
  if [ "${CI:-}" = true ]; then
    give_up "$* (CI=true wants everything)" "give the build server what is named above"
  fi
}

# configure PRESET [OPTION...]
configure() {
  local log="$root/build/$1-configure.log"
  mkdir -p "$root/build"
  if ! cmake --preset "$@" >"$log" 2>&1; then
    tail -n 30 "$log"
    give_up "the $1 build cannot be configured" \
      "read the lines above; if the folder was moved or copied, remove build/$1 and try again"
  fi
}

# build PRESET [TARGET...]: runs side by side take turns in a build folder.
build() {
  local preset="$1" target=()
  shift
  [ $# -eq 0 ] || target=(--target "$@")
  mkdir -p "$root/build"
  exec 7>"$root/build/$preset.lock"
  flock 7
  configure "$preset"
  cmake --build --preset "$preset" "${target[@]}" 7>&- ||
    give_up "the $preset build" "fix what is named above; again: cmake --build --preset $preset"
  exec 7>&-
}

# install_or_give_up JOB...
install_or_give_up() {
  quill_packages_need "$@" || give_up "needed packages are missing" \
    "install what is named above (as root: apt-get install --no-install-recommends ...), then try again"
}
