#!/usr/bin/env bash
# From the start of the desktop program to its window, side by side with
# nedit under a private Xvfb: once with the generated text of the files
# benchmark (1.5 million lines, about 50 MB) until the window's title shows
# the whole text loaded, and once with no file until the empty window is
# there. Best of N runs each, wall time, the window polled every 10 ms.
#
#   bench/frame/run_start_vs_nedit.sh BUILD_DIR [RUNS]
#
# nedit, Xvfb and xdotool are installed here, when missing, through the
# same helper as the build's own packages; nothing in the tests needs them.
PACKAGES=(nedit xvfb xdotool)
default_runs=5
source "$(dirname "$0")/../side_by_side.sh"

"$build/bench/files/bench_files" --generate "$work/big.txt"
lines=$(wc -l <"$work/big.txt")

display=:78
Xvfb "$display" -screen 0 1920x1080x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
trap 'kill "$xvfb" 2>/dev/null; rm -rf "$work"' EXIT
trap 'exit 1' TERM
export DISPLAY=$display
until xdotool getdisplaygeometry >/dev/null 2>&1; do sleep 0.05; done
export XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work/runtime"
mkdir -p "$XDG_CONFIG_HOME" && mkdir -m 700 "$XDG_RUNTIME_DIR"

# window_after TITLE_PATTERN COMMAND...: milliseconds from the start of
# COMMAND until a visible window's title matches the pattern; the program
# is then ended. A window that doesn't come within 10 seconds ends the
# whole run with a message rather than leave it waiting for ever.
window_after() {
  local pattern=$1; shift
  local start end pid
  start=$(date +%s%N)
  "$@" >/dev/null 2>&1 &
  pid=$!
  until xdotool search --onlyvisible --name "$pattern" >/dev/null 2>&1; do
    if [ $(( ($(date +%s%N) - start) / 1000000 )) -gt 10000 ]; then
      kill "$pid" 2>/dev/null
      echo "no window titled \"$pattern\" within 10 s of: $*" >&2
      kill -TERM $$
    fi
    sleep 0.01
  done
  end=$(date +%s%N)
  kill "$pid" 2>/dev/null
  wait "$pid" 2>/dev/null || true
  echo $(( (end - start) / 1000000 ))
}

# best_of TITLE_PATTERN COMMAND...: the least of N runs.
best_of() {
  local best="" took
  for _ in $(seq "$runs"); do
    took=$(window_after "$@")
    if [ -z "$best" ] || [ "$took" -lt "$best" ]; then best=$took; fi
  done
  echo "$best"
}

report() {
  awk -v w="$1" -v t="$2" -v n="$3" 'BEGIN{
    printf "%-22s tavrel %5d ms | nedit %5d ms | ratio %.2f (target <= 1.00)\n", w, t, n, (n > 0 ? t / n : 0) }'
}

echo "text: $lines lines, $(( $(stat -c %s "$work/big.txt") / 1024 )) KB; best of $runs runs"
report "start to the text" \
  "$(best_of "big.txt .*/$lines)" "$build/src/app/tavrel" "$work/big.txt")" \
  "$(best_of "big.txt" nedit "$work/big.txt")"
report "start to empty window" \
  "$(best_of "NoName" "$build/src/app/tavrel")" \
  "$(best_of "Untitled" nedit)"
