#!/usr/bin/env bash
# Builds the plug-in for 32-bit Windows and tests it there: under Wine, in a
# 32-bit Debian of its own. Ends with the line "windows: N passed, N failed".
#
#   scripts/windows.sh [build]      build: only installs what is missing and builds
#
# Running needs root on a Debian that has the package debootstrap; elsewhere the
# script says that it was skipped and succeeds. .cache/windows/ keeps the root
# folder with Wine for the next run.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

checkout=$PWD
cache=$checkout/.cache/windows
build=$checkout/build/windows-x86
bin=$build/bin
wine_root=$cache/wine-root
logs=$checkout/build/logs
export DEBIAN_FRONTEND=noninteractive

skip() {
    echo "windows: skipped: $1"
    exit 0
}

has_debootstrap() {
    command -v debootstrap || apt-cache show debootstrap ||
        { apt-get update && apt-cache show debootstrap; } # a machine fresh from its image knows no packages yet
}

if [[ ${1:-} != build && -z ${SYMBKDS_OWN_MOUNTS:-} ]]; then
    ((EUID == 0)) || skip "only root can set up the system in which the tests run"
    has_debootstrap >/dev/null 2>&1 || skip "there is no package debootstrap"
    # What is mounted below the root folder is seen by this script alone and goes with it.
    export SYMBKDS_OWN_MOUNTS=1
    exec unshare --mount --propagation private bash scripts/windows.sh "$@"
fi

mkdir -p "$cache" "$logs"
passed=0
failed=0

ok() {
    echo "ok      windows: $1"
    passed=$((passed + 1))
}

not_ok() {
    echo "FAILED  windows: $1"
    failed=$((failed + 1))
}

finish() {
    echo "windows: $passed passed, $failed failed"
    ((failed == 0))
    exit
}

# must NAME COMMAND...: a step without which the rest makes no sense; its output goes to a log.
must() {
    local log=$logs/windows-${1// /-}.log status
    set +e
    (
        set -e
        "${@:2}"
    ) >"$log" 2>&1 # errors end a function only outside of any condition
    status=$?
    set -e
    if ((status)); then
        not_ok "$1, from $log:"
        tail -n 40 "$log" | sed 's/^/    /'
        finish
    fi
}

build_windows() {
    cmake --preset windows-x86
    cmake --build --preset windows-x86 --parallel "$(nproc)"
}

# A host of another compiler; it has no C++ runtime and finds the component through the registry.
build_other_host() {
    clang++ --target=i686-pc-windows-msvc -std=c++20 -O1 -Wall -Wextra -Werror -fno-exceptions -fno-rtti \
        -c tests/windows/other_abi_host.cpp -o "$build/other_abi_host.obj"
    i686-w64-mingw32-gcc-posix "$build/other_abi_host.obj" -o "$bin/other_abi_host.exe" -lole32 -loleaut32
}

build_linux() {
    cmake --preset release
    cmake --build --preset release --parallel "$(nproc)" --target symbkds symbhost
}

# A 32-bit Debian with Wine. Only a complete one gets its final name.
prepare_wine() {
    [[ -d $wine_root ]] && return
    rm -rf --one-file-system "$wine_root.new"
    local mirror
    mirror=$(bash scripts/debian-archive.sh)
    debootstrap --arch=i386 --variant=minbase bookworm "$wine_root.new" "$mirror"
    chroot "$wine_root.new" apt-get install --yes --no-install-recommends wine wine32
    chroot "$wine_root.new" apt-get clean
    mount -t proc proc "$wine_root.new/proc"
    chroot "$wine_root.new" env HOME=/root WINEDEBUG=-all wineboot --init
    chroot "$wine_root.new" env HOME=/root wineserver --wait
    umount "$wine_root.new/proc"
    mv "$wine_root.new" "$wine_root"
}

enter_wine() {
    mount -t proc proc "$wine_root/proc"
    mkdir -p "$wine_root$checkout"
    mount --bind "$checkout" "$wine_root$checkout"
}

# Runs a Windows program in the checkout, which has the same path there. This locale means code page 1252.
wine() {
    timeout --kill-after=10 600 chroot "$wine_root" env -i PATH=/usr/bin:/bin HOME=/root LANG=C.UTF-8 WINEDEBUG=-all \
        sh -c 'cd "$1" && shift && exec wine "$@"' sh "$checkout" "$@"
}

windows_path() {
    printf 'Z:%s' "${1//\//\\}"
}

# Runs one test program and counts its tests by its own report.
run_tests() {
    local program=$1 name log good bad all status=0
    name=$(basename "$program" .exe)
    log=$logs/windows-$name.log
    wine "$program" --gtest_brief=0 --gtest_filter="-$left_out" >"$log" 2>&1 || status=$?
    good=$(grep -c '^\[       OK \]' "$log") || true
    bad=$(grep -cE '^\[  FAILED  \] .* ms\)' "$log") || true
    all=$(grep -c '^\[ RUN      \]' "$log") || true
    if ((bad == 0 && (status != 0 || all == 0))); then
        bad=1 # it crashed, or did not start
    fi
    passed=$((passed + good))
    failed=$((failed + bad))
    if ((bad)); then
        echo "FAILED  windows: $name: $bad of $all, status $status, from $log:"
        grep -vE '^\[( RUN |       OK|---)' "$log" | tail -n 40 | sed 's/^/    /'
    else
        echo "ok      windows: $name: $good of $all passed, $((all - good)) skipped"
    fi
}

# What this system's numbers and folders bring in: line ends, the time of loading.
normalised() {
    sed -e 's/\r$//' -e 's/^load time .*/load time/'
}

# The program's output and status on both systems must be the same.
compare() {
    local host=$1
    shift
    local expected actual
    expected=$(build/release/bin/symbhost "$@" 2>&1 && echo "status 0" || echo "status $?")
    actual=$(wine "$host" "$@" 2>&1 && echo "status 0" || echo "status $?")
    if diff <(normalised <<<"$expected") <(normalised <<<"$actual") >"$logs/windows-difference.log"; then
        ok "$label: symbhost $*"
    else
        not_ok "$label: symbhost $* prints something else than on Linux:"
        head -n 20 "$logs/windows-difference.log" | sed 's/^/    /'
    fi
}

# A dump without the tick counts of its first and last line and the time of the export in its seventh.
without_stamps() {
    sed -e '1s/[^ ]*\r$/T\r/' -e '7s/.*/F/' -e '$s/[^ ]* \r$/T \r/' "$1"
}

compare_dump() {
    local host=$1 folder=build/windows-x86/dump
    rm -rf "$folder"
    mkdir -p "$folder/linux" "$folder/windows"
    build/release/bin/symbhost dump examples/plant.kds "$folder/linux" >/dev/null
    wine "$host" dump 'examples\plant.kds' "$(windows_path "$checkout/$folder/windows")" >/dev/null 2>&1 || true
    if diff <(without_stamps "$folder"/linux/*.log) <(without_stamps "$folder"/windows/*.log) >"$folder/difference" 2>&1; then
        ok "$label: the dump of the plant"
    else
        not_ok "$label: the dump of the plant differs from the one on Linux:"
        head -n 20 "$folder/difference" | sed 's/^/    /'
    fi
}

compare_host() {
    local host=$1 plant=examples/plant.kds
    compare "$host" info $plant
    compare "$host" resolve $plant W1 W1.5 start ALARM_LEVEL_LOW FLOW_SETPOINT MOTOR1.SPEED 'HEAD_CURVE[3].X' 'M[1][2]' \
        'UNIT1.PUMP[2].DRIVE.CURRENT' 'SHIFT_SLOTS[1][2][-1]' 'TAB[3].5' PID1.SP PID1.PARA.GAIN \
        LEVEL_TANK1 MOTOR9 W1.16 'TAB[8]'
    compare "$host" resolve --json $plant MOTOR1.SPEED UNIT1 W1.5 MOTOR9
    compare "$host" browse $plant --tree --depth 16
    compare "$host" browse $plant --json
    compare "$host" browse $plant --page 7
    compare "$host" browse $plant --fields AC
    compare "$host" browse $plant 'UNIT1.PUMP[1]' --fields AC
    compare_dump "$host"
}

# expect NAME STATUS COMMAND...: the command must end with the status.
expect() {
    local name=$1 expected=$2 status=0
    shift 2
    "$@" >"$logs/windows-expect.log" 2>&1 || status=$?
    if ((status == expected)); then
        ok "$name"
    else
        not_ok "$name: status $status instead of $expected"
        tail -n 20 "$logs/windows-expect.log" | sed 's/^/    /'
    fi
}

# The registered component must be all that leads a program of its own folder, without a manifest, to it.
test_registered() {
    local folder=$build/registered component key='HKCR\CLSID\{7C1E52A4-93D0-4B6F-A815-2E60F49BC731}\InprocServer32'
    component=$(windows_path "$bin/KorvaProServices.dll")
    label=registered
    rm -rf "$folder"
    mkdir -p "$folder"
    cp "$bin"/{symbhost.exe,symbkds.dll,libstdc++-6.dll,libgcc_s_dw2-1.dll,libwinpthread-1.dll} "$folder"
    wine regsvr32 /s /u "$component" || true # what an aborted run left
    expect "not registered: the plant cannot be loaded" 2 wine "$folder/symbhost.exe" info examples/plant.kds
    expect "regsvr32 registers the component" 0 wine regsvr32 /s "$component"
    expect "the threading model is Both" 0 wine reg query "$key" /v ThreadingModel
    grep -q 'REG_SZ *Both' "$logs/windows-expect.log" || not_ok "the registry says: $(<"$logs/windows-expect.log")"
    compare_host "$folder/symbhost.exe"
    left_out=$(sed -n 's/^\([A-Za-z0-9_]*\.[A-Za-z0-9_]*\) .*/\1/p' tests/windows/left-out.txt | paste -sd:)
    echo "        windows: left out: ${left_out//:/, } (tests/windows/left-out.txt tells why)"
    for program in "$bin"/*_tests.exe; do
        run_tests "$program"
    done
    test_code_page
    expect "a host of another compiler" 0 wine "$bin/other_abi_host.exe" "$(windows_path "$bin/symbkds.dll")" \
        'examples\plant.kds'
    expect "regsvr32 takes the component back" 0 wine regsvr32 /s /u "$component"
    expect "unregistered: the registry holds nothing of it" 1 wine reg query "${key%\\*}"
}

# What a host receives under code page 1252, byte by byte.
test_code_page() {
    local actual
    actual=$(wine "$bin/code_page_view.exe" tests/data/code-page.kds 2>&1 | sed 's/\r$//')
    if diff <(echo "$actual") tests/data/code-page-1252.txt >"$logs/windows-code-page.log"; then
        ok "texts under code page 1252"
    else
        not_ok "texts under code page 1252 (<: received, >: expected):"
        sed 's/^/    /' "$logs/windows-code-page.log"
    fi
}

groups=(build windows)
[[ ${1:-} == build ]] || groups+=(wine)
must "installation" bash scripts/bootstrap.sh "${groups[@]}"
must "build" build_windows
must "host of another compiler" build_other_host
expect "export and import tables" 0 python3 scripts/check-windows-binaries.py "$bin"
[[ ${1:-} != build ]] || finish

must "Linux build" build_linux
must "Wine" prepare_wine
must "mounts" enter_wine
must "start of Wine" wine wineboot # a root that was copied is brought up to date, which Wine mentions
label=manifest
compare_host "$bin/symbhost.exe"
test_registered
chroot "$wine_root" env HOME=/root wineserver --kill || true
finish
