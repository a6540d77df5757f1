#!/usr/bin/env bash
# Runs clang-tidy over the sources of the program: all of them, or those given. Tests and benchmarks are left out.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

cd "$ROOT"
# configure FOLDER [OPTION…]: a folder with clang's flags. Only what is generated gets built in it.
configure() {
    local folder=$1 generated
    shift
    cmake -S . -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ \
        -DTABULON_TESTS=OFF -DTABULON_BENCH=OFF "$@" >/dev/null
    mapfile -t generated < <(ninja -C "$folder" -t targets all | sed -n 's/^\([A-Za-z0-9_]*_autogen\): phony$/\1/p')
    [ ${#generated[@]} -eq 0 ] || ninja -C "$folder" --quiet "${generated[@]}"
}

# check FOLDER CHECKS FILE…: CHECKS is added to those of .clang-tidy. The findings come on standard output; on standard
# error clang-tidy only counts the warnings that it does not show.
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
    # All sources of a library in one translation unit: the headers of the system are read and searched once for each
    # library, which takes a quarter of the time.
    configure build/tidy-all -DTABULON_UNITY=ON
    mapfile -t units < <(sed -n 's/^ *"file": "\(.*\)",*$/\1/p' build/tidy-all/compile_commands.json |
        grep -v _autogen/ | sort -u)
    check build/tidy-all -bugprone-suspicious-include "${units[@]}"
    say "clang-tidy has no findings in ${#units[@]} translation units"
fi
