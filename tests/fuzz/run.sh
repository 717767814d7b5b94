#!/bin/sh
# Runs a fuzzer from its seeds on a corpus that grows: run.sh PROGRAM FOLDER CORPUS RUNS LONG_RUNS, the last with QUILLETS_LONG.
set -eu
mkdir -p "$3"
corpus=$(readlink -f "$3")
TMPDIR=$(mktemp -d -p "$([ -d /dev/shm ] && echo /dev/shm)")
export TMPDIR
trap 'rm -r "$TMPDIR"' EXIT
"$1" -runs="$([ "${QUILLETS_LONG:-}" ] && echo "$5" || echo "$4")" -max_len=8192 -timeout=10 \
    -detect_leaks=0 -artifact_prefix="$corpus-found-" -print_final_stats=1 "$corpus" "$2/seeds"
