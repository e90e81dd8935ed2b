#!/usr/bin/env bash
# Runs live_stream on a port that the system chooses, sends it a datagram between two quiet seconds, ends it as Ctrl-C
# does, and compares what it has printed with a text, where the port is 8600.
# usage: live_test.sh TEXT PROGRAMS SAMPLES
set -euo pipefail

readonly text=$1 programs=$2 samples=$3
printed=$(mktemp)
trap 'rm -f "$printed"; kill "$program" 2>/dev/null || true' EXIT

"$programs/live_stream" udp://127.0.0.1:0 >>"$printed" 2>&1 &
program=$!

# wait_for COUNT TEXT: until it has printed so many lines with this text.
wait_for() {
    local tries
    for ((tries = 0; tries < 300; ++tries)); do
        [[ $(grep -c -- "$2" "$printed") -ge $1 ]] && return
        sleep 0.1
    done
    echo "no '$2' after 30 s:" && cat "$printed" && exit 1
}

wait_for 1 quiet
port=$(sed -n 's/.*listening on .*://p' "$printed")
cat "$samples/radar.ast" >"/dev/udp/127.0.0.1/$port"
wait_for 2 quiet
kill -INT "$program"
status=0
wait "$program" || status=$?
{
    echo '$ live_stream udp://127.0.0.1:8600'
    sed "s/:$port\$/:8600/" "$printed"
    echo '^C'
    [[ $status -eq 0 ]] || echo "(exit status $status)"
} | diff "$text" -
