# shellcheck shell=bash
# Sourced by the scripts that run script hosts: a folder in which Wine's cscript plays the host, with
# both libraries in it, and the tools to register them. Usage of all of them: x64|x86 FOLDER
# PLUGIN.dll KITS.dll ...
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)"
wine="$root/tools/wine"
failed=

fail() {
  echo "FAILED $*"
  failed=yes
}

# Starts the caller again in a session of its own: one prefix for all its programs, whatever else
# runs at the same time.
enter_own_session() {
  arch="$1"
  [ "${QUILL_OWN_SESSION:-}" != "$$" ] || return 0
  exec env -u QUILL_WINE_SESSION "$wine/session" "$arch" bash -c \
    'export QUILL_OWN_SESSION=$$; exec "$0" "$@"' "$0" "$@"
}

windows_path() { printf 'Z:%s' "${1//\//\\}"; }
tool() { "$wine/run" "--$arch" "$@"; }

make_host_folder() {
  host="$1"
  local folder=system32
  [ "$arch" = x64 ] || folder=syswow64
  rm -rf "$host" && mkdir -p "$host" || exit 1
  cp -r "$root/host/imgs" "$2" "$3" "$host/" &&
    cp "$QUILL_WINE_HOME/$QUILL_WINE_SESSION_ARCH/drive_c/windows/$folder/cscript.exe" "$host/" ||
    exit 1
  cd "$host" || exit 1
}

# regsvr32 OPTION... LIBRARY: silently; a failure is one of the caller's.
regsvr32() {
  tool regsvr32 /s "${@:1:$#-1}" "$(windows_path "$host/${!#}")" >/dev/null 2>&1 ||
    fail "regsvr32 $* returned $?"
}
register() {
  regsvr32 kvrrcBHDGS.dll
  regsvr32 rcKits.dll
}
unregister() {
  regsvr32 /u kvrrcBHDGS.dll
  regsvr32 /u rcKits.dll
}
