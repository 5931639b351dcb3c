#!/usr/bin/env bash
# The counting loop S=0:FOR(I=0,I<3000000,I=I+1,S=S+I) in a text with its
# window open, side by side with the same loop in Regina REXX and in a
# compiled vim9 function; then the compile and call benchmarks. Best of N
# runs each.
#
#   bench/macro/run_vs_rexx_vim.sh BUILD_DIR [RUNS]
#
# Regina and vim are installed here, when missing, through the same helper
# as the build's own packages; nothing in the tests needs vim.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${1:?usage: run_vs_rexx_vim.sh BUILD_DIR [RUNS]}
runs=${2:-5}
cd "$root"
source scripts/setup.sh
PACKAGES=(regina-rexx vim-nox)
command -v vim >/dev/null && PACKAGES=(regina-rexx)
ensure_packages

bench="$build/bench/macro/bench_macro"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat >"$work/loop.rexx" <<'REXX'
s = 0
do i = 0 to 2999999; s = s + i; end
say s
REXX

cat >"$work/loop.vim" <<'VIM'
vim9script
def Loop(): number
  var s = 0
  for i in range(3000000)
    s += i
  endfor
  return s
enddef
var start = reltime()
var s = Loop()
writefile([reltimestr(reltime(start)) .. ' ' .. s], $LOOP_OUT)
qa!
VIM

# best COMMAND...: the least of N wall times, in seconds.
best() {
  local best_time="" took
  for _ in $(seq "$runs"); do
    took=$("$@")
    if [ -z "$best_time" ] || awk "BEGIN{exit !($took < $best_time)}"; then
      best_time=$took
    fi
  done
  echo "$best_time"
}

ours() { "$bench" --loop | cut -d' ' -f1; }
rexx_loop() {
  local start end
  start=$(date +%s%N)
  rexx "$work/loop.rexx" >/dev/null
  end=$(date +%s%N)
  awk -v s="$start" -v e="$end" 'BEGIN{printf "%.3f", (e - s) / 1e9}'
}
# vim's own clock around the function, so start-up isn't counted.
vim_loop() {
  LOOP_OUT="$work/vim.out" vim -u NONE -i NONE -n -es -S "$work/loop.vim" </dev/null >/dev/null 2>&1 || true
  awk '{printf "%.3f", $1}' "$work/vim.out"
}

echo "S=0:FOR(I=0,I<3000000,I=I+1,S=S+I), best of $runs runs"
t=$(best ours); r=$(best rexx_loop); v=$(best vim_loop)
echo "tavrel $t s | Regina REXX $r s (including start-up) | vim9 def function $v s"
awk -v t="$t" -v r="$r" -v v="$v" 'BEGIN{
  printf "tavrel / Regina %.2f (target <= 0.50) | tavrel / vim9 %.2f (target <= 1.00)\n", t / r, t / v }'
"$bench" --benchmark_filter='Compile|MillionCalls' --benchmark_repetitions=3 --benchmark_report_aggregates_only=true
