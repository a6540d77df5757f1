#!/usr/bin/env bash
# Runs clang-tidy over the sources of the program: all of them, or those given. Tests and benchmarks are left out.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

cd "$ROOT"
# configure FOLDER [OPTION…]: configures a build folder with clang's flags. Builds only the generated sources.
configure() {
    local folder=$1 generated
    shift
    cmake -S . -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ \
        -DTABULON_TESTS=OFF -DTABULON_BENCH=OFF "$@" >/dev/null
    mapfile -t generated < <(ninja -C "$folder" -t targets all | sed -n 's/^\([A-Za-z0-9_]*_autogen\): phony$/\1/p')
    [ ${#generated[@]} -eq 0 ] || ninja -C "$folder" --quiet "${generated[@]}"
}

# check FOLDER CHECKS FILE…: runs clang-tidy with CHECKS in addition to those of .clang-tidy. Prints the
# findings to standard output. Standard error, on which clang-tidy only counts hidden warnings, is discarded.
check() {
    local folder=$1 checks=$2
    shift 2
    printf '%s\0' "$@" | xargs -0 -n 1 -P "$(nproc)" clang-tidy --quiet -p "$folder" \
        --checks="$checks" 2>/dev/null
}

if [ $# -gt 0 ]; then
    configure build/tidy
    check build/tidy "" "$@"
    say "clang-tidy has no findings in $# sources"
else
    # All sources of a library are one translation unit. The headers of the system are then parsed and checked
    # once for each library, which takes a quarter of the time.
    configure build/tidy-all -DTABULON_UNITY=ON
    mapfile -t units < <(sed -n 's/^ *"file": "\(.*\)",*$/\1/p' build/tidy-all/compile_commands.json |
        grep -v _autogen/ | sort -u)
    check build/tidy-all -bugprone-suspicious-include "${units[@]}"
    say "clang-tidy has no findings in ${#units[@]} translation units"
fi
