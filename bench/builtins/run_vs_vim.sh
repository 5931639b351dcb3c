#!/usr/bin/env bash
# Macros over the 50 MB, 1.5-million-line text of the files benchmark,
# side by side with vim 9 compiled def functions (vim9script), best of N
# runs each, load included; GNU time measures both programs alike.
#   - the sum of the lengths of all lines: LEN(READLINE(L)) in a FOR over
#     NBLINES (with no LEN in the language yet, every line is still read
#     into a string, and the non-empty ones are counted), against a for
#     over getline(1, '$') summing strlen();
#   - 100,000 lines written with WRITE into an empty text, against a while
#     loop of append(line('$'), 'line').
# Ours runs as bench_text_macros, the libraries linked into a program with
# the text's window open on the in-memory display.
#
#   bench/builtins/run_vs_vim.sh BUILD_DIR [RUNS]
PACKAGES=(vim time)
default_runs=3
source "$(dirname "$0")/../side_by_side.sh"

macros="$build/bench/builtins/bench_text_macros"
"$build/bench/files/bench_files" --generate "$work/text"
size_kb=$(( $(stat -c %s "$work/text") / 1024 ))
vim_ex=(vim -u NONE -i NONE -n -es)

cat >"$work/sum.vim" <<'VIM'
vim9script
def Sum(): number
  var s = 0
  for l in getline(1, '$')
    s += strlen(l)
  endfor
  return s
enddef
g:total = Sum()
qa!
VIM

cat >"$work/append.vim" <<'VIM'
vim9script
def Append()
  var i = 0
  while i < 100000
    append(line('$'), 'line')
    i += 1
  endwhile
enddef
Append()
qa!
VIM

report() {
  local what=$1 ours=$2 theirs=$3
  read -r ow oc om <<<"$ours"
  read -r vw vc vm <<<"$theirs"
  awk -v w="$what" -v ow="$ow" -v oc="$oc" -v om="$om" -v vw="$vw" -v vc="$vc" -v vm="$vm" 'BEGIN{
    printf "%-16s tavrel %6.3f s wall %5.2f s cpu %7d KB | vim %6.3f s wall %5.2f s cpu %7d KB | ratio wall %.2f cpu %.2f (target <= 0.50)\n",
      w, ow, oc, om, vw, vc, vm, (vw > 0 ? ow / vw : 0), (vc > 0 ? oc / vc : 0) }'
}

echo "file: $(wc -l <"$work/text") lines, ${size_kb} KB; best of $runs runs"
"$macros" --sum "$work/text" | head -1
report "sum of lengths" "$(best "$macros" --sum "$work/text")" \
  "$(best "${vim_ex[@]}" -S "$work/sum.vim" "$work/text")"
report "load alone" "$(best "$build/bench/files/bench_files" --load "$work/text")" \
  "$(best "${vim_ex[@]}" -c 'qa!' "$work/text")"
report "100,000 WRITE" "$(best "$macros" --write 100000)" \
  "$(best "${vim_ex[@]}" -S "$work/append.vim")"
