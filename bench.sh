#!/bin/bash
# Installs what is missing, builds, and measures. See --help.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
cd "$root" || exit 1
. tools/setup/packages.sh
. tools/setup/steps.sh
# A build for use: no warning ends it.
export QUILL_WARNINGS=shown

usage() {
  cat <<'HELP'
Usage: ./bench.sh             everything: natively, and the real library under Wine
       ./bench.sh --native    natively only
       ./bench.sh ... -- OPTIONS   Google Benchmark's options, for example
                              --benchmark_filter='^decode' or --benchmark_repetitions=25
What is missing is installed first (Debian packages, as root or with sudo). The last table tells
what has to be reached and whether it is; exit code 0: all of it.
HELP
}

mode=all
while [ $# -gt 0 ]; do
  case "$1" in
    --native) mode=native ;;
    --help|-h) usage; exit 0 ;;
    --) shift; break ;;
    *) bad_usage "there is no option $1" ;;
  esac
  shift
done

steps=3
[ "$mode" = native ] || steps=5
begin "looking for what is needed"
install_or_give_up build bench
if [ "$mode" = all ]; then
  # The tests' packages too, because the build is configured with its tests.
  if ! quill_packages_need cross test || ! quill_packages_need wine || ! tools/wine/setup x64; then
    cannot "the real library cannot be built or run here, so its figures are left out"
    mode=native
    steps=3
  fi
fi
done_in

also=()
if [ "$mode" = all ]; then
  begin "building the 64-bit library"
  build x64 dialog_speed
  done_in
  begin "measuring it under Wine"
  # A program that Wine cannot start says nothing and returns 0.
  tools/wine/run build/x64/bench/win32/dialog_speed.exe | tr -d '\r' | tee build/bench-wine.log &&
    grep -qx "measured" build/bench-wine.log ||
    give_up "the measuring under Wine" "read the lines above"
  grep -v -x "measured" build/bench-wine.log >build/bench-wine.txt
  also=(--also build/bench-wine.txt)
  done_in
fi

begin "building the benchmarks"
build bench bench_quill
done_in
begin "measuring"
build/release/bench/bench_quill "${also[@]}" "$@" ||
  give_up "a figure is not reached, or cannot be had" "read the lines above"
