#!/usr/bin/env bash
# Feeds the library with random input for a bounded time.
#
#   scripts/fuzz.sh [SECONDS] [fuzzer...]      default: 60 seconds for each of paths, types, exports
#
# With 0 seconds each fuzzer runs the kept inputs once and nothing else.
#
# Prints for each fuzzer how often it ran its input, how much of the code it
# reached and how fast it was. Ends with 1 when one of them found something;
# the input that did it is then kept in build/fuzz/findings/. What the fuzzers
# learn is kept in build/fuzz/corpus/ and is where the next run begins.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

seconds=${1:-60}
if [[ ! $seconds =~ ^(0|[1-9][0-9]*)$ ]]; then
    echo "usage: scripts/fuzz.sh [SECONDS] [paths|types|exports...]" >&2
    exit 2
fi
fuzzers=("${@:2}")
((${#fuzzers[@]})) || fuzzers=(paths types exports)

bash scripts/bootstrap.sh build fuzz
mkdir -p build/logs build/fuzz/findings
log=build/logs/fuzz-build.log
if ! { cmake --preset fuzz && cmake --build --preset fuzz --target "${fuzzers[@]/%/_fuzzer}"; } >"$log" 2>&1; then
    tail -n 40 "$log" >&2
    echo "fuzz: the build failed; all of its output is in $log" >&2
    exit 1
fi

# statistic LOG NAME: a number that libFuzzer prints when it ends.
statistic() {
    sed -n "s/^stat::$2: *//p" "$1" | tail -n 1
}

# The last "cov: N" of a log: branches of the code reached.
coverage() {
    grep -o ' cov: [0-9]*' "$1" | tail -n 1 | tr -dc 0-9
}

bound=(-max_total_time="$seconds")
((seconds)) || bound=(-runs=0)
findings=0
for name in "${fuzzers[@]}"; do
    log=build/logs/fuzz-$name.log
    mkdir -p "build/fuzz/corpus/$name"
    status=0
    # An input may take 25 seconds and 2 GB; far less is normal, but machines differ.
    "build/fuzz/bin/${name}_fuzzer" "${bound[@]}" -timeout=25 -rss_limit_mb=2048 -print_final_stats=1 \
        -dict="fuzz/dictionaries/$name.dict" -artifact_prefix="build/fuzz/findings/$name-" \
        "build/fuzz/corpus/$name" "fuzz/corpus/$name" >"$log" 2>&1 || status=$?
    executions=$(statistic "$log" number_of_executed_units)
    covered=$(coverage "$log" || true)
    printf '%-8s %10s executions  %6s branches reached  %6s a second  %5s MB at most\n' "$name" "${executions:-0}" \
        "${covered:-0}" "$(statistic "$log" average_exec_per_sec)" "$(statistic "$log" peak_rss_mb)"
    if ((status)); then
        findings=$((findings + 1))
        echo "fuzz: $name found something; from $log:" >&2
        grep -vE 'NEW |REDUCE|pulse|# Uses' "$log" | tail -n 50 >&2
    elif ((${executions:-0} == 0)); then
        findings=$((findings + 1))
        echo "fuzz: $name ran nothing" >&2
    fi
done
((findings == 0))
