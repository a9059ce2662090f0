#!/usr/bin/env bash
# Makes packages of the release build in build/packages/: two .deb (what runs,
# what a host is built with), a .tar.gz, and a .zip for 32-bit Windows.
#
#   scripts/package.sh [linux|windows]      without: all, the .zip where the cross build stands
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

system=${1:-all}
case $system in
    linux | all) groups=(build package) ;;
    windows) groups=(build windows) ;;
    *)
        echo "usage: scripts/package.sh [linux|windows]" >&2
        exit 2
        ;;
esac
bash scripts/bootstrap.sh "${groups[@]}"
mkdir -p build/logs
mkdir -p build/packages

# package PRESET PATTERN TARGET...: builds the targets and packs what is to be installed, instead of packages like PATTERN.
package() {
    local preset=$1 log=build/logs/package-$1.log
    find build/packages -maxdepth 1 -type f -name "$2" -delete
    shift 2
    if ! { cmake --preset "$preset" && cmake --build --preset "$preset" --parallel "$(nproc)" --target "$@" &&
        cpack --config "build/$preset/CPackConfig.cmake" -B "$PWD/build/$preset/packages"; } >"$log" 2>&1; then
        tail -n 30 "$log" >&2
        echo "package: the packages of $preset could not be made; all of the output is in $log" >&2
        exit 1
    fi
    if grep 'The licence of' "$log" >&2; then
        echo "package: a package must hold the licences of what is linked in" >&2
        exit 1
    fi
    find "build/$preset/packages" -maxdepth 1 -type f -exec mv -t build/packages {} +
    rm -rf "build/$preset/packages"
}

if [[ $system != windows ]]; then
    package release '*[!p]' symbkds symbhost symbhost_manual
fi
if [[ $system == windows || ($system == all && -e build/windows-x86/CMakeCache.txt) ]]; then
    package windows-x86 '*.zip' symbkds KorvaProServices symbhost windows_runtime
elif [[ $system == all ]]; then
    echo "package: no .zip for Windows: scripts/package.sh windows makes it"
fi
ls -1 build/packages/*
