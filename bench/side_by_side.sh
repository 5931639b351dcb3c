# What the side-by-side scripts share. Each sources this first, with its
# own arguments BUILD_DIR [RUNS] in place and after setting $PACKAGES (the
# programs it compares with, and GNU time) and $default_runs. This installs
# the missing packages, makes the working copy's top the current folder
# and sets $root, $build, $runs (how many runs to take the best of) and
# $work (a scratch folder, removed at exit).
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${1:?usage: $(basename "$0") BUILD_DIR [RUNS]}
runs=${2:-$default_runs}
cd "$root"
# setup.sh sets PACKAGES to the build's own list; the caller's comes back.
compared=("${PACKAGES[@]}")
source scripts/setup.sh
PACKAGES=("${compared[@]}")
ensure_packages
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# best COMMAND...: the least wall time, CPU time and peak memory of N runs
# each; prints "wall cpu peak_kb". The wall time is taken to the
# microsecond around a run of the command alone, as GNU time gives only
# hundredths of a second and itself costs milliseconds to start on a
# virtual machine, which would be counted in the wall time of both
# programs alike and hide how far apart they are. CPU time and peak
# memory come from a second run of each pair under GNU time. $prepare,
# when set, runs untimed before each run.
prepare=""
now_us() {
  echo "${EPOCHREALTIME/[.,]/}"
}
best() {
  local wall="" cpu="" peak="" start end took line peak_here
  for _ in $(seq "$runs"); do
    if [ -n "$prepare" ]; then eval "$prepare"; fi
    start=$(now_us)
    "$@" >/dev/null 2>&1
    end=$(now_us)
    took=$((end - start))
    if [ -z "$wall" ] || [ "$took" -lt "$wall" ]; then wall=$took; fi
    if [ -n "$prepare" ]; then eval "$prepare"; fi
    /usr/bin/time -o "$work/time" -f "%U %S %M" "$@" >/dev/null 2>&1
    line=$(tail -1 "$work/time")
    read -r took peak_here <<<"$(awk '{printf "%d %d\n", ($1 + $2) * 100 + 0.5, $3}' <<<"$line")"
    if [ -z "$cpu" ] || [ "$took" -lt "$cpu" ]; then cpu=$took; fi
    if [ -z "$peak" ] || [ "$peak_here" -lt "$peak" ]; then peak=$peak_here; fi
  done
  awk -v w="$wall" -v c="$cpu" -v p="$peak" 'BEGIN{printf "%.3f %.2f %d\n", w / 1e6, c / 100, p}'
}
