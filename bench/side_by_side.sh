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

# best COMMAND...: the run with the least wall time; prints "wall cpu
# peak_kb". The wall time is taken to the millisecond around the run, as
# GNU time gives only hundredths of a second. $prepare, when set, runs
# untimed before each run.
prepare=""
best() {
  local best_line="" line wall start end
  for _ in $(seq "$runs"); do
    if [ -n "$prepare" ]; then eval "$prepare"; fi
    start=$(date +%s%N)
    /usr/bin/time -o "$work/time" -f "%U %S %M" "$@" >/dev/null 2>&1
    end=$(date +%s%N)
    wall=$(awk -v s="$start" -v e="$end" 'BEGIN{printf "%.3f", (e - s) / 1e9}')
    line="$wall $(tail -1 "$work/time")"
    if [ -z "$best_line" ] || awk "BEGIN{exit !($wall < ${best_line%% *})}"; then
      best_line=$line
    fi
  done
  awk '{printf "%s %.2f %s\n", $1, $2 + $3, $4}' <<<"$best_line"
}
