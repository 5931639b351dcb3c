#!/usr/bin/env bash
# Loading and saving a generated text of 1.5 million lines (about 50 MB, one
# line in seven starting with a tab), side by side with vim in silent ex
# mode: wall time, CPU time and peak memory of each process, best of N runs.
#
#   bench/files/run_vs_vim.sh BUILD_DIR [RUNS]
#
# vim and GNU time are installed here, when missing, through the same
# helper as the build's own packages; nothing in the tests needs them.
PACKAGES=(vim time)
default_runs=3
source "$(dirname "$0")/../side_by_side.sh"

bench="$build/bench/files/bench_files"
"$bench" --generate "$work/text"
size_kb=$(( $(stat -c %s "$work/text") / 1024 ))
vim_ex=(vim -u NONE -i NONE -n -es)

report() {
  local what=$1 ours=$2 theirs=$3
  read -r ow oc om <<<"$ours"
  read -r vw vc vm <<<"$theirs"
  awk -v w="$what" -v ow="$ow" -v oc="$oc" -v om="$om" -v vw="$vw" -v vc="$vc" -v vm="$vm" -v f="$size_kb" 'BEGIN{
    printf "%-14s tavrel %6.3f s wall %5.2f s cpu %7d KB | vim %6.3f s wall %5.2f s cpu %7d KB | time ratio wall %.2f cpu %.2f (target <= 0.50) | memory %.2f x file (target <= 1.20)\n",
      w, ow, oc, om, vw, vc, vm, (vw > 0 ? ow / vw : 0), (vc > 0 ? oc / vc : 0), om / f }'
}

echo "file: $(wc -l <"$work/text") lines, ${size_kb} KB; best of $runs runs"
report "load and quit" "$(best "$bench" --load "$work/text")" \
  "$(best "${vim_ex[@]}" -c 'qa!' "$work/text")"
report "load and save" "$(best "$bench" --save "$work/text" "$work/ours")" \
  "$(best "${vim_ex[@]}" -c "w! $work/theirs" -c 'qa!' "$work/text")"
cmp -s "$work/text" "$work/ours" && echo "saved copy equals the file" || echo "saved copy DIFFERS from the file"
