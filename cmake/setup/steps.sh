# shellcheck shell=bash disable=SC2154
# Sourced by ./run and ./test: numbered steps, building a preset, and failures that say what to do.
# Expects $root, and $steps, the number of steps to come.

step=0
step_start=0

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

# give_up WHAT, THEN: the last two lines of a failed run.
give_up() {
  echo
  echo "FAILED: $1"
  echo "What to do: $2"
  exit 1
} >&2

# cannot REASON: something this machine cannot do. Elsewhere the rest still runs; a build server
# that silently did less would be worth nothing.
cannot() {
  echo "NOTE: $*"
  if [ "${CI:-}" = true ]; then
    give_up "$* (CI=true wants everything)" "give the build server what is named above"
  fi
}

# configure PRESET
configure() {
  local log="$root/build/$1-configure.log"
  mkdir -p "$root/build"
  if ! cmake --preset "$1" >"$log" 2>&1; then
    tail -n 30 "$log" >&2
    give_up "the $1 build cannot be configured" \
      "read the lines above; if the folder was moved or copied, remove build/$1 and try again"
  fi
}

# build PRESET [TARGET...]
build() {
  local preset="$1" target=()
  shift
  [ $# -eq 0 ] || target=(--target "$@")
  configure "$preset"
  cmake --build --preset "$preset" "${target[@]}" ||
    give_up "the $preset build" "mend what the compiler says above; again: cmake --build --preset $preset"
}

# install_or_give_up JOB...
install_or_give_up() {
  quill_packages_need "$@" || give_up "needed packages are missing" \
    "install what is named above (as root: apt-get install --no-install-recommends ...), then try again"
}
