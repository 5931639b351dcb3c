#!/usr/bin/env bash
# "Replace all" of "gamma" by "GAMMA" over the generated text of the files
# benchmark (1.5 million lines, about 50 MB), side by side with vim in
# silent ex mode and with sed: load, replace from the top, save, quit. Wall
# time, CPU time and peak memory of each process, best of N runs; then
# "Find next" of a string that isn't in the text, from its top, with its
# report.
#
#   bench/search/run_vs_vim_sed.sh BUILD_DIR [RUNS]
#
# vim and GNU time are installed here, when missing, through the same
# helper as the build's own packages; nothing in the tests needs them.
PACKAGES=(vim time)
default_runs=3
source "$(dirname "$0")/../side_by_side.sh"

bench="$build/bench/search/bench_search"
"$build/bench/files/bench_files" --generate "$work/text"
size_kb=$(( $(stat -c %s "$work/text") / 1024 ))

line() {
  local who=$1 figures=$2
  read -r w c m <<<"$figures"
  awk -v who="$who" -v w="$w" -v c="$c" -v m="$m" -v f="$size_kb" 'BEGIN{
    printf "  %-7s %6.3f s wall %5.2f s cpu %8d KB peak (%.2f x file)\n", who, w, c, m, m / f }'
}

ratio() {
  local what=$1 ours=$2 theirs=$3 target=$4
  awk -v what="$what" -v o="${ours%% *}" -v t="${theirs%% *}" -v oc="$(cut -d' ' -f2 <<<"$ours")" \
      -v tc="$(cut -d' ' -f2 <<<"$theirs")" -v target="$target" 'BEGIN{
    printf "  tavrel / %-4s wall %.2f cpu %.2f (target <= %s)\n", what, o / t, (tc > 0 ? oc / tc : 0), target }'
}

echo "file: $(wc -l <"$work/text") lines, ${size_kb} KB, $(grep -c gamma "$work/text") lines with \"gamma\"; best of $runs runs"
echo "replace all \"gamma\" by \"GAMMA\", load to save:"
ours=$(best "$bench" --replace "$work/text" "$work/ours")
# vim changes its file in place: each run gets a fresh copy, untimed.
prepare='cp "$work/text" "$work/vimmed"'
vim=$(best vim -u NONE -i NONE -n -es -c '%s/gamma/GAMMA/g' -c 'wq' "$work/vimmed")
prepare=""
sed=$(best sh -c "sed 's/gamma/GAMMA/g' '$work/text' > '$work/sedded'")
line tavrel "$ours"
line vim "$vim"
line sed "$sed"
ratio vim "$ours" "$vim" 0.50
ratio sed "$ours" "$sed" 1.00
awk -v m="$(cut -d' ' -f3 <<<"$ours")" -v f="$size_kb" 'BEGIN{printf "  tavrel peak memory %.2f x file (target <= 1.30)\n", m / f}'
cmp -s "$work/ours" "$work/sedded" && echo "  tavrel's result equals sed's" || echo "  tavrel's result DIFFERS from sed's"
cmp -s "$work/vimmed" "$work/sedded" && echo "  vim's result equals sed's" || echo "  vim's result DIFFERS from sed's"

echo "find next of a missing string from the top, with its report:"
best_ms=""
best_cpu=""
for _ in $(seq "$runs"); do
  read -r _ ms cpu < <("$bench" --find "$work/text" 2>/dev/null)
  if [ -z "$best_ms" ] || awk "BEGIN{exit !($ms < $best_ms)}"; then best_ms=$ms; best_cpu=$cpu; fi
done
echo "  tavrel ${best_ms} ms wall, ${best_cpu} ms cpu (target < 30 ms)"
