#!/usr/bin/env bash
# Runs clang-tidy over the sources of the program: all of them, or those given. Tests and benchmarks are left out.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

cd "$ROOT"
# A folder of its own, with clang's flags. Only what is generated gets built in it.
cmake -S . -B build/tidy -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ \
    -DTABULON_TESTS=OFF -DTABULON_BENCH=OFF >/dev/null
mapfile -t generated < <(ninja -C build/tidy -t targets all | sed -n 's/^\([A-Za-z0-9_]*_autogen\): phony$/\1/p')
[ ${#generated[@]} -eq 0 ] || ninja -C build/tidy --quiet "${generated[@]}"

files=("$@")
if [ ${#files[@]} -eq 0 ]; then
    mapfile -t files < <(git ls-files 'app/*.cpp' 'base/*.cpp' 'cli/*.cpp' 'formats/*.cpp' 'html/*.cpp' \
        'main/*.cpp' 'model/*.cpp' 'platform/*.cpp' 'plist/*.cpp' 'text/*.cpp' 'ui/*.cpp' 'url/*.cpp' 'window/*.cpp')
fi
# It counts the warnings that it does not show on standard error; what it has to say comes on standard output.
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy --quiet -p build/tidy 2>/dev/null
say "clang-tidy has nothing to say about ${#files[@]} sources"
