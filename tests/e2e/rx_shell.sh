#!/bin/sh
# Drives a running tavrel-headless from the shell with tavrel-rx, as a user
# would, then loads its texts with many clients at once.
#   rx_shell.sh HEADLESS TAVREL-RX LOAD-CLIENT E2E-DIR SCRATCH COMMANDS
headless=$1 rx=$2 load=$3 e2e=$4 scratch=$5 commands=$6
rm -rf "$scratch"
mkdir -p -m 700 "$scratch/runtime" "$scratch/config/tavrel/rexx"
cp "$e2e/rexx/record_args.tavrel" "$scratch/config/tavrel/rexx/"
export XDG_RUNTIME_DIR="$scratch/runtime" XDG_CONFIG_HOME="$scratch/config"
mkfifo "$scratch/events"
"$headless" "$e2e/data/a.txt" "$e2e/data/b.txt" "$e2e/data/two_lines.txt" "$e2e/data/words.txt" \
    "$e2e/data/sixty_lines.txt" < "$scratch/events" > "$scratch/out" 2> "$scratch/err" &
editor=$!
exec 3> "$scratch/events"
for i in $(seq 200); do [ -S "$scratch/runtime/tavrel/Tavrel.5" ] && break; sleep 0.05; done
failed=0

# check OUTPUT RC ARGUMENTS...: tavrel-rx prints OUTPUT and exits with RC.
check() {
  want=$1 wantrc=$2; shift 2
  got=$("$rx" "$@" 2> "$scratch/rx.err"); rc=$?
  if [ "$got" != "$want" ] || [ "$rc" != "$wantrc" ]; then
    echo "tavrel-rx $*: printed '$got' with $rc, expected '$want' with $wantrc"; cat "$scratch/rx.err"
    failed=1
  fi
}
check 3 0 Tavrel.1 '1+2'
check "x y" 0 tavrel.2 'S="x y"'
check "x y" 0 TAVREL.2 'S'
check "" 20 Tavrel.7 '1'
check 0 0 "$e2e/rexx/record_args" first second
check "2 | first | second" 0 Tavrel.1 'ARGS'
check 0 0 record_args "in the script directory"
check "1 | in the script directory | " 0 Tavrel.1 'ARGS'
check "" 5 no_such_script
# A socket client gets the variables a command sets in its caller.
check "5
P.0=Tavrel.1
P.1=Tavrel.2
P.2=Tavrel.3
P.3=Tavrel.4
P.4=Tavrel.5" 0 Tavrel.1 'TEXTS("P")'

# A failing command shows its requester in the text and answers 20 once
# the user has closed it.
{ "$rx" Tavrel.1 'line' > "$scratch/line.out"; echo $? > "$scratch/line.rc"; } &
asker=$!
sleep 1
printf 'activate 1\nrequester\nbutton OK !\n' >&3
wait $asker
[ "$(cat "$scratch/line.rc")" = 20 ] || { echo "a failing command gave $(cat "$scratch/line.rc")"; failed=1; }

"$load" 20 "$commands" Tavrel.1 Tavrel.2 Tavrel.3 Tavrel.4 Tavrel.5 || failed=1

exec 3>&-
wait $editor || { echo "the editor ended with $?"; failed=1; }
grep -q '|Missing operator' "$scratch/out" || { echo "no requester:"; cat "$scratch/out"; failed=1; }
[ -e "$scratch/runtime/tavrel/Tavrel.1" ] && { echo "a socket outlived the editor"; failed=1; }
exit $failed
