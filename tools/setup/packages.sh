# shellcheck shell=bash disable=SC2034
# Sourced: which Debian packages each job needs, and how missing ones are installed.

# The list of each job; see quill_packages_need.
QUILL_PACKAGES_build="g++ cmake ninja-build zlib1g-dev"
QUILL_PACKAGES_test="libgtest-dev libgmock-dev python3"
# A compiler whose sanitizers know more, and which is a second opinion on the code.
QUILL_PACKAGES_clang="clang-16 libclang-rt-16-dev llvm-16"
QUILL_PACKAGES_format="clang-format-16"
QUILL_PACKAGES_tidy="clang-tidy-16"
QUILL_PACKAGES_cross="g++-mingw-w64-x86-64-win32 mingw-w64-tools libz-mingw-w64-dev"
QUILL_PACKAGES_cross32="g++-mingw-w64-i686-win32 mingw-w64-tools libz-mingw-w64-dev"
# Installer and archive.
QUILL_PACKAGES_package="nsis zip git"
# The fonts make dialog units and text widths come out as on Windows.
QUILL_PACKAGES_wine="wine wine64 fonts-wine fonts-liberation"
# A display without a screen, a window manager and a hand at mouse and keys.
QUILL_PACKAGES_display="xvfb openbox xdotool"
# Google Benchmark, and the libraries that ours is compared with.
QUILL_PACKAGES_bench="libbenchmark-dev libmodpbase64-dev libssl-dev libglib2.0-dev libabsl-dev libboost-dev pkg-config"

# quill_as_root COMMAND...: directly, or with sudo where the caller is not root.
quill_as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    return 126
  fi
}

# quill_packages_missing PACKAGE...: prints those that are not installed.
quill_packages_missing() {
  local package
  for package in "$@"; do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
      printf '%s ' "$package"
  done
}

# quill_apt_get ARGUMENT...: unattended, and patient with another apt-get.
quill_apt_get() {
  quill_as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=600 \
    -o Acquire::Retries=3 "$@" </dev/null
}

# quill_packages_need JOB...: installs what the jobs' lists lack; touches nothing when that is
# nothing. Prints the reason and fails where it cannot.
quill_packages_need() {
  local job list wanted="" missing log
  for job in "$@"; do
    list="QUILL_PACKAGES_$job"
    wanted="$wanted ${!list}"
  done
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "This is not a Debian system; nothing is installed for you. Needed are:$wanted" >&2
    return 1
  fi
  # shellcheck disable=SC2086  # the lists are words
  missing="$(quill_packages_missing $wanted)"
  [ -n "$missing" ] || return 0
  echo "      installing $missing"
  log="$(mktemp)"
  # shellcheck disable=SC2086
  if quill_apt_get update >"$log" 2>&1 &&
    quill_apt_get install -y --no-install-recommends $missing >>"$log" 2>&1; then
    rm -f "$log"
    return 0
  fi
  # A package index that is only partly reachable may still hold what is needed.
  # shellcheck disable=SC2086
  if quill_apt_get install -y --no-install-recommends $missing >>"$log" 2>&1; then
    rm -f "$log"
    return 0
  fi
  if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
    echo "Not root, and no sudo here. As root: apt-get install --no-install-recommends $missing" >&2
  else
    tail -n 5 "$log" >&2
    echo "Could not install $missing(log: $log)" >&2
  fi
  return 1
}
