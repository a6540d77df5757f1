# The common functions of the project's scripts: the tree's folder, messages, installing packages, building a
# preset. Sourced by ./run, ./test, ./bench/run, .ci/run and the scripts of this folder, never run.

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck source=scripts/packages.sh
source "$ROOT/scripts/packages.sh"

# Prints a message to standard error, so that standard output contains only results.
say() {
    printf '== %s\n' "$*" >&2
}

die() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# as_root COMMAND…: runs the command as root, through sudo if the user is not root.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

missing_packages() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || echo "$package"
    done
}

# need_packages PACKAGE…: installs the packages that are missing. Does not use the network if none is missing.
need_packages() {
    if ! command -v dpkg-query >/dev/null; then
        say "This is no Debian system: going on without looking for packages."
        return
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        die "these Debian packages are missing and there is no sudo to install them with: ${missing[*]}." \
            "Ask an administrator to run: apt-get install ${missing[*]}"
    fi
    say "Installing ${#missing[@]} Debian packages: ${missing[*]}"
    local log
    log=$(mktemp)
    if ! as_root apt-get -q update >"$log" 2>&1; then
        say "The package lists could not be brought up to date; trying with those that are here."
    fi
    if ! as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o Dpkg::Use-Pty=0 install \
        --no-install-recommends "${missing[@]}" >>"$log" 2>&1; then
        tail -n 20 "$log" >&2
        rm -f "$log"
        die "the packages could not be installed (the end of apt-get's output is above)."
    fi
    rm -f "$log"
}

# Lets ccache serve one build folder from another: paths in the tree are hashed relative to the build folder. A base
# folder of the user's own settings is kept.
if [ -z "$(ccache --get-config base_dir 2>/dev/null)" ]; then
    export CCACHE_BASEDIR=$ROOT CCACHE_NOHASHDIR=1
fi

# build_preset PRESET [TARGET…]: configures the preset's folder build/PRESET the first time and builds the targets,
# or everything. Quiet unless something is built or fails.
build_preset() {
    local preset=$1
    shift
    cd "$ROOT"
    if [ ! -e "build/$preset/build.ninja" ]; then
        say "Configuring build/$preset"
        cmake --preset "$preset" >&2
    fi
    if [ "$(ninja -C "build/$preset" -n "$@" 2>/dev/null | tail -n 1)" = "ninja: no work to do." ]; then
        return
    fi
    say "Building build/$preset"
    ninja -C "build/$preset" "$@" >&2
}

# run_ctest FOLDER [CTEST-OPTION…]: runs the tests of a build folder and leaves their report in FOLDER/ctest.xml.
run_ctest() {
    local folder=$1
    shift
    rm -f "$folder/ctest.xml"
    ctest --test-dir "$folder" --output-on-failure --no-tests=error -j "$(nproc)" --output-junit ctest.xml "$@"
}

TESTS_PASSED=0
TESTS_FAILED=0
TESTS_SKIPPED=0

# count_tests FOLDER: adds the report of run_ctest to the totals. A missing report, because the build failed,
# counts as one failure.
count_tests() {
    local report=$1/ctest.xml total failed skipped
    if [ ! -e "$report" ]; then
        TESTS_FAILED=$((TESTS_FAILED + 1))
        return
    fi
    total=$(suite_number "$report" tests)
    failed=$(suite_number "$report" failures)
    skipped=$(($(suite_number "$report" skipped) + $(suite_number "$report" disabled)))
    TESTS_PASSED=$((TESTS_PASSED + total - failed - skipped))
    TESTS_FAILED=$((TESTS_FAILED + failed))
    TESTS_SKIPPED=$((TESTS_SKIPPED + skipped))
}

# Prints the number in the first ATTRIBUTE="…" of a JUnit report, which is that of the whole suite.
suite_number() {
    sed -n "s/^[[:space:]]*$2=\"\([0-9]*\)\".*/\1/p" "$1" | head -n 1
}

print_test_totals() {
    printf '%d passed, %d failed' "$TESTS_PASSED" "$TESTS_FAILED"
    [ "$TESTS_SKIPPED" -eq 0 ] || printf ', %d skipped' "$TESTS_SKIPPED"
    printf '\n'
}
