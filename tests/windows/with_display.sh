#!/bin/bash
# Runs a command on a private display with a window manager, in an empty home, and takes all of it down again.
# Usage: with_display.sh COMMAND...   WINDOWS_SCREEN: size of the screen; WINDOWS_LIMIT: seconds for the command.
set -u
scratch=$(mktemp -d)
server='' manager='' command=''

TakeDown() {
    local process
    for process in $command $manager $server; do
        kill "$process" 2>/dev/null
        wait "$process" 2>/dev/null
    done
    rm -rf "$scratch"
}
trap TakeDown EXIT
trap 'exit 143' HUP INT TERM

mkdir -m 700 "$scratch/home" "$scratch/run" "$scratch/tmp"
export HOME=$scratch/home XDG_RUNTIME_DIR=$scratch/run TMPDIR=$scratch/tmp LC_ALL=C.UTF-8
export PULSE_SERVER=unix:$scratch/silent DBUS_SESSION_BUS_ADDRESS=unix:path=$scratch/silent
unset WAYLAND_DISPLAY XAUTHORITY SESSION_MANAGER XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME XDG_CURRENT_DESKTOP

# Server and command die with this script even when it is killed outright, and every client with the server.
mkfifo "$scratch/number"
setpriv --pdeathsig KILL Xvfb -displayfd 3 -screen 0 "${WINDOWS_SCREEN:-1280x900}x24" -nolisten tcp -noreset \
    3>"$scratch/number" 2>"$scratch/log" &
server=$!
read -r -t 30 number <"$scratch/number" || { cat "$scratch/log" >&2; exit 1; }
export DISPLAY=:$number
openbox --startup "touch $scratch/managed" 2>"$scratch/log" &
manager=$!
for ((i = 0; i < 600; ++i)); do
    [[ -e $scratch/managed ]] && break
    sleep 0.05
done

setpriv --pdeathsig TERM timeout -k 5 "${WINDOWS_LIMIT:-100}" "$@" &
command=$!
wait "$command"
status=$?
command=''
exit "$status"
