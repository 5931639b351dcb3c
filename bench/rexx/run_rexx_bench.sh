#!/bin/sh
# Scripts and host ports against a running tavrel-headless with one text,
# each figure beside a peer measured in the same run, the best of three
# runs of each (the machine is shared and noisy):
#   host commands per second from one REXX script through ADDRESS, beside
#     the same loop with the command done by the interpreter alone (regina)
#   host commands per second through one socket connection, strict request
#     and reply, then with 64 requests under way, beside a plain Unix socket
#     ping-pong between two processes (python3), strict and with 64
#   tavrel-rx start to exit, beside /bin/true and regina -v
#   run_rexx_bench.sh BUILD-DIR [COMMANDS]
build=$1 commands=${2:-20000}
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -m 700 "$scratch/runtime"
export XDG_RUNTIME_DIR="$scratch/runtime"
mkfifo "$scratch/events"
"$build/src/app/tavrel-headless" < "$scratch/events" > /dev/null 2>&1 &
exec 3> "$scratch/events"
for i in $(seq 200); do [ -S "$scratch/runtime/tavrel/Tavrel.1" ] && break; sleep 0.05; done
rx="$build/src/app/tavrel-rx"
load="$build/tests/platform/rexx/host_load_client"

now() { date +%s%N; }
# best COMMAND...: the least wall time in ns of three runs
best() {
  least=
  for run in 1 2 3; do
    start=$(now); "$@" > /dev/null; took=$(( $(now) - start ))
    [ -z "$least" ] || [ "$took" -lt "$least" ] && least=$took
  done
  echo "$least"
}
rate() { echo "$1 $2" | awk '{ printf "%.0f", $1 * 1e9 / $2 }'; }
# best_of_printed COMMAND...: the highest figure three runs print
best_of_printed() {
  for run in 1 2 3; do "$@"; done | sort -n | tail -n 1
}

took=$(best "$rx" "$here/address_loop.tavrel" "$commands")
peer=$(best regina "$here/plain_loop.rexx" "$commands")
echo "ADDRESS from one script:     $(rate "$commands" "$took") commands/s   (regina alone, the same loop: $(rate "$commands" "$peer") loops/s)"

took=$(best "$load" 1 "$commands" Tavrel.1)
peer=$(best_of_printed python3 "$here/socket_ping_pong.py" "$commands")
echo "one socket connection:       $(rate "$commands" "$took") commands/s strict   (python3 socket ping-pong: $peer round trips/s)"
took=$(best "$load" -w 64 1 "$commands" Tavrel.1)
peer=$(best_of_printed python3 "$here/socket_ping_pong.py" "$commands" 64)
echo "                             $(rate "$commands" "$took") commands/s, 64 under way   (python3, 64 under way: $peer round trips/s)"

runs=200
time_runs() { start=$(now); i=0; while [ $i -lt $runs ]; do "$@" > /dev/null 2>&1; i=$((i + 1)); done; echo $(( ($(now) - start) / runs / 1000 )); }
best_runs() { for run in 1 2 3; do time_runs "$@"; done | sort -n | head -n 1; }
echo "tavrel-rx start to exit:     $(best_runs "$rx" Tavrel.1 1) us   (/bin/true: $(best_runs /bin/true) us, regina -v: $(best_runs regina -v) us)"

exec 3>&-
wait
