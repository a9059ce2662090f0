#!/usr/bin/env bash
# For scripts that count their checks and end, by finish, with the line "NAME: N passed, N failed":
#
#   source scripts/counting.sh NAME      in the checkout's folder
#
# Each check leaves its output in a file of build/logs/.

counted=$1
logs=$PWD/build/logs
mkdir -p "$logs"
passed=0
failed=0

ok() {
    echo "ok      $counted: $1"
    passed=$((passed + 1))
}

not_ok() {
    echo "FAILED  $counted: $1"
    failed=$((failed + 1))
}

finish() {
    echo "$counted: $passed passed, $failed failed"
    ((failed == 0))
    exit
}

# run NAME COMMAND...: leaves the command's status in `status` and its output in the file `log`.
run() {
    log=${1//[^[:alnum:]._]/-}
    log=$logs/$counted-${log:0:60}.log
    set +e
    (
        set -e
        "${@:2}"
    ) >"$log" 2>&1 # errors end a function only outside of any condition
    status=$?
    set -e
}

show_log() {
    tail -n 40 "$log" | sed 's/^/    /'
}

# expect NAME STATUS COMMAND...: the command must end with the status.
expect() {
    run "$1" "${@:3}"
    if ((status == $2)); then
        ok "$1"
    else
        not_ok "$1: status $status instead of $2, from $log:"
        show_log
    fi
}

# check NAME COMMAND...: the command must succeed.
check() {
    expect "$1" 0 "${@:2}"
}

# must NAME COMMAND...: a step without which the rest makes no sense; counted only when it fails.
must() {
    run "$@"
    if ((status)); then
        not_ok "$1, from $log:"
        show_log
        finish
    fi
}

# unpack KIND FOLDER: the package of that kind as a new folder, which is what the package's only folder becomes.
unpack() {
    local packages=(build/packages/*."$1")
    ((${#packages[@]} == 1))
    rm -rf "$2" "$2.new"
    mkdir "$2.new"
    (cd "$2.new" && cmake -E tar xf "$OLDPWD/${packages[0]}")
    mv "$2.new"/* "$2"
    rmdir "$2.new"
}
