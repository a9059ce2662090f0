#!/usr/bin/env bash
# Installs the release build, moves it, and uses it as others will: runs the
# program, builds the example host by find_package and by pkg-config, completes
# command lines; then the same with the unpacked packages. Breaks installations
# and reads what is said about them. Builds the project as a subdirectory of
# another one. Ends with the line "install: N passed, N failed".
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

source scripts/counting.sh install

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
server='{7C1E52A4-93D0-4B6F-A815-2E60F49BC731}.so'

# equal EXPECTED ACTUAL
equal() {
    diff <(echo "$1") <(echo "$2")
}

build() {
    cmake --preset release
    cmake --build --preset release --parallel "$(nproc)" --target symbkds symbhost symbhost_manual
}

# The whole installation goes to another place than it was made for, with a blank in its name.
install_and_move() {
    DESTDIR=$work/stage cmake --install build/release --prefix /opt/symbkds
    mv "$work/stage/opt/symbkds" "$1"
    equal "cmake/ pkgconfig/ symbkds/" "$(cd "$1/lib" && echo */)"
    equal "" "$(find "$1" -type f -size +0 -exec sha256sum {} + | cut -c 1-64 | sort | uniq -d)" # nothing lies there twice
}

unpack_debs() {
    for package in build/packages/*.deb; do
        dpkg-deb --extract "$package" "$work/debs"
    done
    dpkg-deb --field build/packages/symbkds_*.deb Depends | grep 'libc6.*libstdc++6'
    dpkg-deb --field build/packages/symbkds-dev_*.deb Depends | grep 'symbkds (= '
}

run_program() {
    cd "$1/bin"
    equal "$(cd "$OLDPWD" && build/release/bin/symbhost resolve --json examples/plant.kds MOTOR1.SPEED)" \
        "$(./symbhost resolve --json "$1/share/doc/symbkds/examples/plant.kds" MOTOR1.SPEED)"
    equal "plug-in    $1/lib/symbkds/libsymbkds.so
component  $1/lib/symbkds/comservers/$server" "$(./symbhost --version | tail -n 2)"
    grep -q '^.TH SYMBHOST "1"' "$1/share/man/man1/symbhost.1"
    for command in $(./symbhost --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p'); do
        grep -q "^symbhost $command " "$1/share/man/man1/symbhost.1"
    done
    for library in pugixml CLI11 nlohmann-json; do
        grep -qi 'licen[cs]e' "$1/share/doc/symbkds/licences/$library.txt"
    done
}

# The last line of a command that fails.
last_line() {
    ! "$@" >"$work/output" 2>&1 && tail -n 1 "$work/output"
}

# What every host must do, whatever it was built by: say where a symbol lies, and what is wrong.
run_host() {
    local plant=examples/plant.kds
    equal "block 5, byte 200, 2 bytes" "$("$1" $plant MOTOR1.SPEED "${@:2}")"
    equal "host: The export serves no symbol NOWHERE." "$(last_line "$1" $plant NOWHERE "${@:2}")"
    equal "host: The export none.kds cannot be loaded." "$(last_line "$1" none.kds W1 "${@:2}")"
    equal "host: The plug-in none.so cannot be loaded, error 126." "$(last_line "$1" $plant W1 none.so)"
}

build_by_cmake() {
    local build=$work/by-cmake
    rm -rf "$build"
    cmake -S "$1/share/doc/symbkds/examples/host" -B "$build" -G Ninja -DCMAKE_PREFIX_PATH="$1"
    cmake --build "$build"
    run_host "$build/host"
    cat >"$build/CMakeLists.txt" <<<'cmake_minimum_required(VERSION 3.25)
        project(asks NONE)
        find_package(symbkds 1.0 REQUIRED)
        file(WRITE ${CMAKE_BINARY_DIR}/plugin-path "${SYMBKDS_PLUGIN}")'
    cmake -S "$build" -B "$build/asks" -DCMAKE_PREFIX_PATH="$1"
    run_host "$build/host" "$(<"$build/asks/plugin-path")"
}

build_by_pkg_config() {
    export PKG_CONFIG_PATH=$1/lib/pkgconfig
    eval "g++ -std=c++20 -Wall -Wextra -Wpedantic -Werror examples/host/main.cpp -o '$work/by-pkg-config' \
        $(pkg-config --cflags --libs symbkds)"
    run_host "$work/by-pkg-config"
    [[ $(eval "echo $(pkg-config --variable=plugin symbkds)") -ef $1/lib/symbkds/libsymbkds.so ]]
}

use_installation() {
    check "$1: program, manual page, licences" run_program "$2"
    check "$1: host by find_package" build_by_cmake "$2"
    check "$1: host by pkg-config" build_by_pkg_config "$2"
}

# Words of a command line, and what bash must offer for the last one.
complete_lines() {
    local bin=$1/bin completion=$1/share/bash-completion/completions/symbhost rows words expected
    rows='re                                              | resolve
          resolve --js                                    | --json
          resolve --dump-dir exa                          | examples
          browse exam                                     | examples
          browse examples/pl                              | examples/plant.kds
          resolve examples/plant.kds MOTOR1.S             | MOTOR1.SPEED MOTOR1.STATUS MOTOR1.START_DELAY
          resolve examples/plant.kds FAN W1 PID1.PARA.T   | PID1.PARA.TI PID1.PARA.TD
          browse --dump-dir tests examples/plant.kds HORN | HORN
          browse examples/plant.kds UNIT1.PUMP[2].DRIVE.C | UNIT1.PUMP[2].DRIVE.CURRENT
          browse examples/plant.kds M[1                   | M[1]
          resolve examples/plant.kds HEAD_CURVE[3]        | HEAD_CURVE[3].X HEAD_CURVE[3].Y
          diff examples/plant.kds examples/pl             | examples/plant.kds
          why --from README examples/plant.kds SITE       | SITE_NAME
          info examples/plant.kds MOTOR1.S                |
          resolve none.kds W                              |'
    while IFS='|' read -r words expected; do
        read -ra words <<<"$words"
        equal "${words[*]}: ${expected# }" \
            "${words[*]}: $(bash tests/install/completion.sh "$completion" "$bin/symbhost" "${words[@]}")"
    done <<<"$rows"
    # A name of an export never becomes a command.
    sed 's/name="HORN"/name="HORN;$(id)"/' examples/plant.kds >"$work/hostile.kds"
    equal "HEARTBEAT HEAD_CURVE" \
        "$(bash tests/install/completion.sh "$completion" "$bin/symbhost" resolve "$work/hostile.kds" H)"
}

# broken NAME STATUS TEXT COMMAND...: after the command in its library folder the program must end so and say so.
broken() {
    local prefix=$work/broken status=0
    rm -rf "$prefix"
    cp -R "$work/moved here" "$prefix"
    (cd "$prefix/lib/symbkds" && "${@:4}")
    timeout 60 "$prefix/bin/symbhost" resolve examples/plant.kds W1 >"$work/output" 2>&1 || status=$?
    check "broken installation: $1" diff <(echo "status $2, told: $3") <(
        grep -F "$3" "$work/output" >"$work/told" && told=$3 || told=$(<"$work/output")
        echo "status $status, told: $told"
    )
}

other_machine() {
    printf '\xb7' | dd of="$1" bs=1 seek=18 conv=notrunc status=none # the header names another processor
}

half() {
    truncate --size=$(($(stat --format=%s "$1") / 2)) "$1"
}

# instead COMMAND FILE: makes something else under the file's name.
instead() {
    rm "$2"
    "$1" "$2"
}

break_installations() {
    local no_library='cannot be loaded: it is no library that this program can load'
    local no_platform="$work/broken/lib/symbkds/libsymbplatform.so cannot be loaded: it is missing"
    local no_component="it was looked for here: $work/broken/lib/symbkds/comservers/$server"
    broken "no plug-in" 2 "there is no plug-in libsymbkds.so in $work/broken/lib/symbkds" rm libsymbkds.so
    broken "a text as plug-in" 2 "$no_library" cp "$PWD/README.md" libsymbkds.so
    broken "an empty plug-in" 2 "$no_library" truncate --size=0 libsymbkds.so
    broken "a page of a plug-in" 2 "$no_library" truncate --size=4096 libsymbkds.so
    broken "a plug-in for another machine" 2 "$no_library" other_machine libsymbkds.so
    broken "a pipe as plug-in" 2 "$no_library" instead mkfifo libsymbkds.so
    broken "a library that is no plug-in" 2 "it does not export NewSymb" cp libsymbplatform.so libsymbkds.so
    broken "no component" 2 "$no_component" rm -r comservers
    broken "a text as component" 2 "$no_component" cp "$PWD/README.md" "comservers/$server"
    broken "half a component" 2 "$no_component" half "comservers/$server"
    broken "a component for another machine" 2 "$no_component" other_machine "comservers/$server"
    broken "a folder as component" 2 "$no_component" instead mkdir "comservers/$server"
    broken "a library that is no component" 2 "$no_component" cp libsymbkds.so "comservers/$server"
    broken "no platform library" 2 "$no_platform" rm libsymbplatform.so
    broken "half a platform library" 2 "$no_platform" half libsymbplatform.so
    broken "another library as platform library" 2 "$no_platform" cp "comservers/$server" libsymbplatform.so
    broken "no program" 2 "$work/broken/lib/symbkds/symbhost is missing or damaged" rm symbhost
}

build_as_subdirectory() {
    local build=$PWD/build/subdirectory
    cmake -S tests/install -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
        -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON -DCMAKE_DISABLE_FIND_PACKAGE_nlohmann_json=ON
    cmake --build "$build" --parallel "$(nproc)"
    run_host "$build/host" "$(<"$build/plugin-path")"
}

bash scripts/bootstrap.sh build package
must "build" build
check "installation" install_and_move "$work/moved here"
use_installation "moved" "$work/moved here"
check "completion" complete_lines "$work/moved here"
break_installations
check "packages" bash scripts/package.sh linux
if ((status == 0)); then
    check "unpacked .deb" unpack_debs
    use_installation ".deb" "$work/debs/usr"
    check "unpacked .tar.gz" unpack tar.gz "$work/tar"
    use_installation ".tar.gz" "$work/tar"
fi
check "subdirectory of another project" build_as_subdirectory
finish
