# shellcheck shell=bash
# Sourced by the scripts beside it: where Wine's files lie, and the variables every Wine run needs.
#
# $QUILL_WINE_HOME/x64, x86   finished prefixes, made once by ./setup and never run in afterwards
# $QUILL_WINE_HOME/debian     a small Debian with 32-bit Wine, where the machine cannot install it
# $QUILL_WINE_HOME/sessions   throw-away prefixes, hard-linked from the finished ones

QUILL_WINE_HOME="${QUILL_WINE_HOME:-${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/quillstart/wine}"
export QUILL_WINE_HOME
QUILL_WINE_ROOT="$QUILL_WINE_HOME/debian"

# Raise it when a finished prefix of an earlier version no longer does.
QUILL_WINE_PREFIX_VERSION=1

export WINEARCH=win64
export WINEDEBUG="${WINEDEBUG:--all}"
# No Mono and no browser engine to download, no crash dialog, no menu entries in the real home.
export WINEDLLOVERRIDES="mscoree,mshtml=;winedbg.exe=;winemenubuilder.exe=d"
# The machine's locale would choose Windows' code page and the language of its texts.
export LC_ALL=C.UTF-8
unset LANGUAGE

quill_wine_die() {
  echo "wine: $*" >&2
  exit 1
}

# Says how 32-bit programs can run here: host, chroot, or nothing when that is not set up.
quill_wine_x86_way() {
  if [ -x /usr/lib/wine/wine ]; then
    echo host
  elif [ -f "$QUILL_WINE_ROOT/.quillstart-complete" ]; then
    echo chroot
  fi
}

# quill_wine_prefix_ready ARCH
quill_wine_prefix_ready() {
  [ "$(cat "$QUILL_WINE_HOME/$1/.quillstart-version" 2>/dev/null)" = "$QUILL_WINE_PREFIX_VERSION" ] || return
  # Once 32-bit Wine is installed beside it, it starts all programs, and needs its half of a prefix
  # that may have been made before.
  [ ! -x /usr/lib/wine/wine ] || [ "$1" = x86 ] ||
    [ -f "$QUILL_WINE_HOME/$1/drive_c/windows/syswow64/kernel32.dll" ]
}

# quill_wine_exec WAY PROGRAM ARGUMENT...: replaces the shell by a program of the Wine world, here
# or in the small Debian. The caller has entered the right namespaces.
quill_wine_exec() {
  local way="$1"
  shift
  if [ "$way" = chroot ]; then
    # shellcheck disable=SC2016  # expanded by the inner shell
    exec chroot "$QUILL_WINE_ROOT" /usr/bin/env PATH=/usr/sbin:/usr/bin:/sbin:/bin \
      /bin/sh -c 'cd "$1" && shift && exec "$@"' sh "$PWD" "$@"
  fi
  exec "$@"
}

# quill_wine_enter_namespaces COMMAND...: replaces the shell by COMMAND in namespaces of its own,
# in which the small Debian sees this machine's files under their own names. Whatever COMMAND
# leaves running ends with it, and no mount outlives it.
quill_wine_enter_namespaces() {
  local user=()
  [ "$(id -u)" = 0 ] || user=(--user --map-root-user)
  # shellcheck disable=SC2016  # expanded by the inner shell
  exec unshare "${user[@]}" --mount --pid --fork --kill-child --mount-proc --propagation private \
    /bin/bash -c '
      root="$1"
      shift
      for top in /*; do
        case "$top" in
          /bin|/boot|/dev|/etc|/lib*|/lost+found|/proc|/run|/sbin|/sys|/usr|/var) ;;
          *)
            [ -d "$top" ] && [ ! -L "$top" ] || continue
            [ -d "$root$top" ] || mkdir "$root$top" 2>/dev/null || continue
            mount --rbind "$top" "$root$top" || exit 1 ;;
        esac
      done
      mount --rbind /dev "$root/dev" && mount -t proc proc "$root/proc" || exit 1
      exec "$@"' bash "$QUILL_WINE_ROOT" "$@"
}
