#!/usr/bin/env bash
# Fuzzes each target for a while and stops at the first input that breaks a promise:
#
#     scripts/fuzz.sh [SECONDS [TARGET...]]      a target gets 60 seconds; all of them
#
# Inputs that reach something new stay in build/fuzz/runs, and the next run goes on from them.
set -euo pipefail
cd "$(dirname "$0")/.."

# How many bytes an input has at most: enough for every kind of text, few enough for a fast run.
declare -A longest=(
    [chord_lines]=128 [conversion]=512 [option_file]=256 [rhythm_lines]=256 [tree_text]=512)

seconds=${1-60}
[[ $seconds =~ ^[0-9]+$ ]] || { echo "fuzz.sh: \"$seconds\" is no number of seconds" >&2; exit 2; }
targets=("${@:2}")
[[ ${#targets[@]} -gt 0 ]] || mapfile -t targets < <(printf '%s\n' "${!longest[@]}" | sort)
for target in "${targets[@]}"; do
    [[ -n ${longest[$target]-} ]] || { echo "fuzz.sh: there is no target \"$target\"" >&2; exit 2; }
done

# The executions in the log, how many a second, and the program's edges that were reached.
summarise() {
    local executions rate edges
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$1")
    rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$1")
    edges=$(sed -n 's/.*DONE *cov: \([0-9]*\) .*/\1/p' "$1")
    echo "$executions executions, $rate a second, $edges edges"
}

fuzz() {
    local target=$1 runs=build/fuzz/runs/$1 program=build/fuzz/fuzz/fuzz_$1
    mkdir -p "$runs/inputs" "$runs/broken"
    # Only the first folder is written to.
    if "$program" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -malloc_limit_mb=64 \
        -max_len="${longest[$target]}" -dict="fuzz/dictionaries/$target.dict" \
        -artifact_prefix="$runs/broken/" -print_final_stats=1 \
        "$runs/inputs" fuzz/*/"$target" 2>"$runs/log"; then
        echo "$target: $(summarise "$runs/log")"
        return
    fi
    cat "$runs/log" >&2
    local input
    input=$(sed -n 's/.*Test unit written to //p' "$runs/log" | tail -n 1)
    echo "fuzz.sh: $target breaks on ${input:-an input that could not be kept}. To see it again:" >&2
    echo "    $program ${input:-FILE}" >&2
    echo "Mended, it belongs into fuzz/finds/$target under a name that says what it is." >&2
    return 1
}

# Freed memory is watched long enough for one input, and no stacks are kept for what is allocated:
# seeing an input again without these options tells more.
export ASAN_OPTIONS=malloc_context_size=0:quarantine_size_mb=8
# Temporary files that never reach a disk.
[[ ! -w /dev/shm ]] || export TMPDIR=/dev/shm

scripts/setup.sh build test check
cmake --preset fuzz
cmake --build --preset fuzz --parallel "$(nproc)"
for target in "${targets[@]}"; do
    fuzz "$target"
done
