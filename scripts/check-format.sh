#!/usr/bin/env bash
# Fails when a C++ source is not formatted as .clang-format says. With --fix it formats instead.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

cd "$ROOT"
mapfile -d '' sources < <(comm -z -23 <(git ls-files -z -co --exclude-standard '*.cpp' '*.h' | sort -z) \
    <(git ls-files -z -d | sort -z))
if [ "${1:-}" = --fix ]; then
    clang-format -i "${sources[@]}"
else
    clang-format --dry-run -Werror "${sources[@]}"
    say "${#sources[@]} sources are formatted"
fi
