#!/usr/bin/env bash
# The counting loop S=0:FOR(I=0,I<3000000,I=I+1,S=S+I) in a text with its
# window open, side by side with the same loop in Regina REXX and in a
# compiled vim9 function, then the compile and call benchmarks. Best of N
# runs each. GNU time measures the three programs alike.
#
#   bench/macro/run_vs_rexx_vim.sh BUILD_DIR [RUNS]
#
# Regina and vim are installed here, when missing, through the same helper
# as the build's own packages; nothing in the tests needs vim.
PACKAGES=(regina-rexx vim-nox time)
command -v vim >/dev/null && PACKAGES=(regina-rexx time)
default_runs=5
source "$(dirname "$0")/../side_by_side.sh"

bench="$build/bench/macro/bench_macro"

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
Loop()
qa!
VIM

# cpu COMMAND...: the least of N CPU times (user + system) of the whole
# process, in seconds, and its wall time. CPU time is what counts on a
# machine shared with other work; each program's start-up is included (a
# few milliseconds for each of the three).
cpu() {
  local best_cpu="" best_wall="" line
  for _ in $(seq "$runs"); do
    /usr/bin/time -o "$work/time" -f "%U %S %e" "$@" </dev/null >/dev/null 2>&1 || true
    line=$(tail -1 "$work/time")
    read -r user system wall <<<"$line"
    total=$(awk -v u="$user" -v s="$system" 'BEGIN{printf "%.2f", u + s}')
    if [ -z "$best_cpu" ] || awk "BEGIN{exit !($total < $best_cpu)}"; then
      best_cpu=$total best_wall=$wall
    fi
  done
  echo "$best_cpu $best_wall"
}

echo "S=0:FOR(I=0,I<3000000,I=I+1,S=S+I), best of $runs runs, CPU seconds (wall)"
read -r t tw <<<"$(cpu "$bench" --loop)"
read -r r rw <<<"$(cpu rexx "$work/loop.rexx")"
read -r v vw <<<"$(cpu vim -u NONE -i NONE -n -es -S "$work/loop.vim")"
echo "tavrel $t ($tw) | Regina REXX $r ($rw) | vim9 def function $v ($vw)"
awk -v t="$t" -v r="$r" -v v="$v" 'BEGIN{
  printf "tavrel / Regina %.2f (target <= 0.50) | tavrel / vim9 %.2f (target <= 1.00)\n", t / r, t / v }'
"$bench" --benchmark_filter='Compile|MillionCalls' --benchmark_repetitions=3 --benchmark_report_aggregates_only=true
