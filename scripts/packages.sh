# The Debian packages that each task needs, by their names in Debian 12. This file only lists them; lib.sh
# installs them.

# Building everything that needs no toolkit: libraries, command-line tool, tests, benchmarks.
PACKAGES_BUILD=(
    g++ cmake ninja-build ccache pkg-config python3
    libicu-dev libuchardet-dev libfmt-dev libpugixml-dev libsimdjson-dev libcli11-dev libexpected-dev libmimalloc-dev
    libgtest-dev libgmock-dev libplist-dev libzstd-dev
)

# Building and showing the desktop program.
PACKAGES_DESKTOP=(qt6-base-dev qt6-svg-dev qt6-wayland libglib2.0-dev libxcb1-dev fonts-dejavu-core)

# Showing a window without a display, and saving a picture of it.
PACKAGES_DISPLAY=(xvfb xauth openbox xdotool scrot xclip)

# The programs that the tests run, without the browsers and the bookmark editor that some tests use.
PACKAGES_TESTS=(
    libplist-utils libxml2-utils desktop-file-utils shared-mime-info appstream xdg-utils libglib2.0-bin dbus-daemon x11-utils dpkg-dev
    at-spi2-core gir1.2-atspi-2.0 python3-gi
)

# The programs that the benchmarks measure against.
PACKAGES_BENCH=(python3-lxml keditbookmarks)

# What only CI needs: checks, fuzzing, browsers, a Wayland session.
PACKAGES_CI=(
    clang-format clang-tidy clang libclang-rt-14-dev firefox-esr chromium git make lintian
    sway wl-clipboard wtype
)
