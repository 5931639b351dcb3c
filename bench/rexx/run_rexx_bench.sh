#!/bin/sh
# Scripts and host ports against a running tavrel-headless with one text,
# each figure beside a peer measured in the same run:
#   host commands per second from one REXX script through ADDRESS, beside
#     the same loop with the command done by the interpreter alone (regina)
#   host commands per second through one socket connection, beside a
#     plain Unix socket ping-pong between two processes (python3)
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

now() { date +%s%N; }
rate() { echo "$1 $2" | awk '{ printf "%.0f", $1 * 1e9 / $2 }'; }

start=$(now); "$rx" "$here/address_loop.tavrel" "$commands" > /dev/null; took=$(( $(now) - start ))
start=$(now); regina "$here/plain_loop.rexx" "$commands" > /dev/null; peer=$(( $(now) - start ))
echo "ADDRESS from one script:     $(rate "$commands" $took) commands/s   (regina alone, the same loop: $(rate "$commands" $peer) loops/s)"

start=$(now); "$build/tests/platform/rexx/host_load_client" 1 "$commands" Tavrel.1 > /dev/null; took=$(( $(now) - start ))
peer=$(python3 "$here/socket_ping_pong.py" "$commands")
echo "one socket connection:       $(rate "$commands" $took) commands/s   (python3 socket ping-pong: $peer round trips/s)"

runs=200
time_runs() { start=$(now); i=0; while [ $i -lt $runs ]; do "$@" > /dev/null 2>&1; i=$((i + 1)); done; echo $(( ($(now) - start) / runs / 1000 )); }
echo "tavrel-rx start to exit:     $(time_runs "$rx" Tavrel.1 1) us   (/bin/true: $(time_runs /bin/true) us, regina -v: $(time_runs regina -v) us)"

exec 3>&-
wait
