#!/usr/bin/env bash
# Builds the plug-in and the command-line host and shows them at work on the
# example plant.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

bash scripts/bootstrap.sh build
mkdir -p build
log=build/demo.log
if ! { cmake --preset release && cmake --build --preset release --target symbkds symbhost; } >"$log" 2>&1; then
    tail -n 40 "$log" >&2
    echo "demo: the build failed; all of its output is in $log" >&2
    exit 1
fi

# Prints a command as one would type it, then what it prints; `expected` is the status it should end with.
show() {
    local expected=$1 status=0
    shift
    echo "\$ $host $*"
    "$host" "$@" 2>&1 || status=$?
    echo
    if ((status != expected)); then
        echo "demo: symbhost ended with $status instead of $expected" >&2
        exit 1
    fi
}

host=build/release/bin/symbhost
plant=examples/plant.kds

echo "# What is in the plant"
show 0 info "$plant"

echo "# Variables, single bits, members, elements and parameters become addresses"
show 0 resolve "$plant" W1 W1.5 start ALARM_LEVEL_LOW FLOW_SETPOINT \
    MOTOR1.SPEED UNIT1.PUMP[2].DRIVE.CURRENT 'HEAD_CURVE[3].X' 'M[1][2]' 'SHIFT_SLOTS[1][2][-1]' 'TAB[3].5' \
    UNIT1.PUMP MOTOR3.SPEED PID1.SP PID1.PARA.GAIN

echo "# Why a host does not get a symbol"
show 1 why "$plant" LEVEL_TANK1 MOTOR9 W1.16 'TAB[8]' PID1.SETPOINT_RAMP

echo "# What a person can pick from: as a tree, and as a list with addresses and comments"
show 0 browse "$plant" --tree --pattern PID1 --depth 3
show 0 browse "$plant" 'UNIT1.PUMP[1]' --fields AC
