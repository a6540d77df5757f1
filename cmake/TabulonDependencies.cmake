# The libraries that the project uses, looked up once. Each is a package of Debian 12.

find_package(ICU REQUIRED COMPONENTS uc i18n)
find_package(fmt REQUIRED)
find_package(pugixml REQUIRED)
find_package(simdjson REQUIRED)
find_package(CLI11 REQUIRED)
find_package(tl-expected REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(UCHARDET REQUIRED IMPORTED_TARGET uchardet)
pkg_check_modules(ZSTD REQUIRED IMPORTED_TARGET libzstd)

# mimalloc needs little memory for nodes and texts: no header per block and fine size classes. Sanitizers have
# their own allocators.
if(TABULON_MIMALLOC AND NOT TABULON_SANITIZE AND NOT TABULON_FUZZ)
  find_package(mimalloc REQUIRED)
endif()
# A fuzz target runs the program with the tests' windows in memory, which check the reports that they receive.
if(TABULON_TESTS OR TABULON_FUZZ)
  find_package(GTest REQUIRED)
endif()
# Tests are scripts, and one makes the archive of the extension.
if(TABULON_TESTS OR TABULON_DESKTOP)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
endif()
# The benchmarks read their own archives with libplist, for comparison; nothing else links it.
if(TABULON_BENCH)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(LIBPLIST REQUIRED IMPORTED_TARGET libplist-2.0)
endif()
if(TABULON_DESKTOP)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Svg DBus Test)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)
  pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0 gio-unix-2.0)
endif()
