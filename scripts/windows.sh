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
packed=$build/packed # the unpacked .zip
wine_root=$cache/wine-root
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

source scripts/counting.sh windows
mkdir -p "$cache"

build_windows() {
    cmake --preset windows-x86
    cmake --build --preset windows-x86 --parallel "$(nproc)"
}

# What the tests use is the .zip as it would be installed; they are laid beside its files.
pack() {
    bash scripts/package.sh windows
    unpack zip "$packed"
}

lay_tests_beside() {
    cp "$bin"/*_tests.exe "$bin"/*_tests.exe.manifest "$bin"/{code_page_view,other_abi_host}.exe "$packed/bin"
}

# The files that docs/windows.md says belong together, and no others, lie beside the documents.
compare_files() {
    diff <(sed -n '/^| File /,/^$/s/^| \(`[^|]*\) |.*/\1/p' docs/windows.md | tr -d '`' | tr ' ' '\n' | sort) \
        <(ls "$packed/bin" | sort)
    diff <(printf '%s\n' bin share/doc/symbkds) <(cd "$packed" && find . -type f -printf '%P\n' |
        sed -E 's,^(bin|share/doc/symbkds)/.*,\1,' | sort -u)
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
same_output() {
    local expected actual
    expected=$(build/release/bin/symbhost "${@:2}" 2>&1 && echo "status 0" || echo "status $?")
    actual=$(wine "$@" 2>&1 && echo "status 0" || echo "status $?")
    diff <(normalised <<<"$expected") <(normalised <<<"$actual")
}

compare() {
    check "$label: symbhost ${*:2} prints what it prints on Linux" same_output "$@"
}

# A dump without the tick counts of its first and last line and the time of the export in its seventh.
without_stamps() {
    sed -e '1s/[^ ]*\r$/T\r/' -e '7s/.*/F/' -e '$s/[^ ]* \r$/T \r/' "$1"
}

same_dump() {
    local folder=build/windows-x86/dump
    rm -rf "$folder"
    mkdir -p "$folder/linux" "$folder/windows"
    build/release/bin/symbhost dump examples/plant.kds "$folder/linux"
    wine "$1" dump 'examples\plant.kds' "$(windows_path "$checkout/$folder/windows")"
    diff <(without_stamps "$folder"/linux/*.log) <(without_stamps "$folder"/windows/*.log)
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
    check "$label: the dump of the plant is that of Linux" same_dump "$host"
}

is_threading_model_both() {
    wine reg query "$1" /v ThreadingModel | grep 'REG_SZ *Both'
}

# What a host receives under code page 1252, byte by byte: <: received, >: expected.
same_code_page_view() {
    diff <(wine "$packed/bin/code_page_view.exe" tests/data/code-page.kds 2>&1 | sed 's/\r$//') tests/data/code-page-1252.txt
}

# The registered component must be all that leads a program of its own folder, without a manifest, to it.
test_registered() {
    local folder=$build/registered component key='HKCR\CLSID\{7C1E52A4-93D0-4B6F-A815-2E60F49BC731}\InprocServer32'
    component=$(windows_path "$packed/bin/KorvaProServices.dll")
    label=registered
    rm -rf "$folder"
    mkdir -p "$folder"
    cp "$packed/bin"/{symbhost.exe,symbkds.dll,libstdc++-6.dll,libgcc_s_dw2-1.dll,libwinpthread-1.dll} "$folder"
    wine regsvr32 /s /u "$component" || true # what an aborted run left
    expect "not registered: the plant cannot be loaded" 2 wine "$folder/symbhost.exe" info examples/plant.kds
    check "regsvr32 registers the component" wine regsvr32 /s "$component"
    check "the threading model is Both" is_threading_model_both "$key"
    compare_host "$folder/symbhost.exe"
    left_out=$(sed -n 's/^\([A-Za-z0-9_]*\.[A-Za-z0-9_]*\) .*/\1/p' tests/windows/left-out.txt | paste -sd:)
    echo "        windows: left out: ${left_out//:/, } (tests/windows/left-out.txt tells why)"
    for program in "$packed/bin"/*_tests.exe; do
        run_tests "$program"
    done
    check "texts under code page 1252" same_code_page_view
    check "a host of another compiler" wine "$packed/bin/other_abi_host.exe" \
        "$(windows_path "$packed/bin/symbkds.dll")" 'examples\plant.kds'
    check "regsvr32 takes the component back" wine regsvr32 /s /u "$component"
    expect "unregistered: the registry holds nothing of it" 1 wine reg query "${key%\\*}"
}

groups=(build windows)
[[ ${1:-} == build ]] || groups+=(wine)
must "installation" bash scripts/bootstrap.sh "${groups[@]}"
must "build" build_windows
must "host of another compiler" build_other_host
if [[ ${1:-} == build ]]; then
    check "export and import tables" python3 scripts/check-windows-binaries.py "$bin"
    finish
fi

must "Linux build" build_linux
must "Wine" prepare_wine
must "mounts" enter_wine
must "start of Wine" wine wineboot # a root that was copied is brought up to date, which Wine mentions
must "the .zip" pack
check "the files of the .zip" compare_files
check "export and import tables of the .zip" python3 scripts/check-windows-binaries.py "$packed/bin"
label=manifest
compare_host "$packed/bin/symbhost.exe"
must "tests beside the files of the .zip" lay_tests_beside
test_registered
chroot "$wine_root" env HOME=/root wineserver --kill || true
finish
