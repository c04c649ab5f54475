# shellcheck shell=bash
# Sourced by the scripts that judge a program by what it prints. Expects $here.
log="$(mktemp)"
trap 'rm -f "$log" "$log.raw"' EXIT

# logged_run PROGRAM [ARGUMENT...]: runs a Windows program, prints what it prints, in that order, and
# keeps it in $log; returns its exit code. The program writes to the file, not to this script's
# output: what Wine leaves running in the background inherits its output, and whoever reads a pipe
# waits for the last one that holds it.
logged_run() {
  local program
  : >"$log.raw"  # there before tail looks for it
  "$here/run" "$@" </dev/null >"$log.raw" 2>&1 &
  program=$!
  # Without a terminal Wine's programs end their lines with carriage returns.
  tail -n +1 -s 0.1 -f --pid="$program" "$log.raw" | tr -d '\r' | tee "$log"
  wait "$program"
}
