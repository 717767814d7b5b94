#!/bin/bash
# Runs a command on a private display with a window manager, in an empty home, and takes all of it down again.
# Usage: with_display.sh COMMAND...   Tells it $DISPLAY_SERVER and $WINDOW_MANAGER, two processes, and
# $PROGRAM_FOLDER, where the shipped collection and settings are.
set -u
scratch=$(mktemp -d --tmpdir displayXXXXXX)
trap 'kill $(jobs -p) 2>/dev/null; wait; rm -rf "$scratch"' EXIT
trap 'exit 143' HUP INT TERM

mkdir -m 700 "$scratch/home" "$scratch/run" "$scratch/tmp" "$scratch/program"
cp "$(dirname "$0")"/../../data/{QUILLET.qui,Quillets.cfg} "$scratch/program"
export HOME=$scratch/home XDG_RUNTIME_DIR=$scratch/run TMPDIR=$scratch/tmp LC_ALL=C.UTF-8 PROGRAM_FOLDER=$scratch/program
export PULSE_SERVER=unix:$scratch/silent DBUS_SESSION_BUS_ADDRESS=unix:path=$scratch/silent CUPS_SERVER=$scratch/silent
unset WAYLAND_DISPLAY XAUTHORITY SESSION_MANAGER XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME XDG_CURRENT_DESKTOP

# Server and command die with this script even when it is killed outright, and every client with the server.
mkfifo "$scratch/number"
setpriv --pdeathsig KILL Xvfb -displayfd 3 -screen 0 3000x1800x24 -nolisten tcp -noreset 3>"$scratch/number" 2>"$scratch/log" &
export DISPLAY_SERVER=$!
read -r -t 30 number <"$scratch/number" || { cat "$scratch/log" >&2; exit 1; }
export DISPLAY=:$number
openbox --startup "touch $scratch/managed" 2>"$scratch/log" &
export WINDOW_MANAGER=$!
until [[ -e $scratch/managed ]]; do sleep 0.05; done
setpriv --pdeathsig TERM timeout -k 5 100 "$@" &
wait $!
