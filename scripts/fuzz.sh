#!/usr/bin/env bash
# Builds the fuzz targets with clang and runs each for a while: fuzz.sh [SECONDS] (60 when not given). The
# inputs that a target finds are stored in build/fuzz/corpus, and an input that makes it fail in build/fuzz.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

seconds=${1:-60}
need_packages "${PACKAGES_BUILD[@]}" clang libclang-rt-14-dev
build_preset fuzz
cd "$ROOT/build/fuzz"

# fuzz_one TARGET SEEDS: prints the last lines of a run, all of a failed one.
fuzz_one() {
    local target=$1 seeds=$2
    mkdir -p "corpus/$target"
    if "fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -max_len=65536 \
        -print_final_stats=1 -artifact_prefix="$target-" "corpus/$target" "$seeds" >"$target.log" 2>&1; then
        printf '%s: %s\n' "$target" "$(grep -m 1 -o 'stat::number_of_executed_units: *[0-9]*' "$target.log")" >&2
    else
        tail -n 60 "$target.log" >&2
        printf '%s: FAILED, the input is in build/fuzz/%s-*\n' "$target" "$target" >&2
        return 1
    fi
}

say "Fuzzing each target for $seconds seconds"
# One target runs on each processor, so that the targets do not slow each other.
failed=0
running=0
while read -r target seeds; do
    if [ "$running" -ge "$(nproc)" ]; then
        wait -n || failed=1
        running=$((running - 1))
    fi
    fuzz_one "$target" "$seeds" &
    running=$((running + 1))
done <fuzz/targets.txt
while [ "$running" -gt 0 ]; do
    wait -n || failed=1
    running=$((running - 1))
done
exit "$failed"
