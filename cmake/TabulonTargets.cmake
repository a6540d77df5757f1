# The common properties of all targets of the project: language level, warnings, sanitizers, the folders that
# they may include. There are no precompiled headers: they save a twelfth of a build, and with them ccache
# cannot use the results of one build folder in another.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(tabulon_build_options INTERFACE)
target_compile_features(tabulon_build_options INTERFACE cxx_std_20)
target_compile_options(tabulon_build_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor)
# GCC 12 reports impossible sizes in inlined std::string code. clang-tidy and the sanitizers check the same
# code.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(tabulon_build_options INTERFACE
    -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread)
endif()
# Sized deallocation is standard C++. Other compilers enable it by default, clang only from version 19.
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(tabulon_build_options INTERFACE -fsized-deallocation)
endif()
if(TABULON_WERROR)
  target_compile_options(tabulon_build_options INTERFACE -Werror)
endif()
if(TABULON_SANITIZE)
  target_compile_options(tabulon_build_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tabulon_build_options INTERFACE -fsanitize=address,undefined)
endif()
if(TABULON_FUZZ)
  target_compile_options(tabulon_build_options INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_link_options(tabulon_build_options INTERFACE -fsanitize=address,undefined)
endif()

# tabulon_include_folder(TARGET SCOPE FOLDER [OWN_HEADERS]): lets TARGET (PRIVATE), or also the targets that link it (PUBLIC),
# include "FOLDER/…". No target has the root of the tree on its include path, so a target sees the folders that it links
# and no others. The include path is <build>/include/FOLDER, which contains one symbolic link to the folder. With
# OWN_HEADERS it contains a link to each header directly in the folder, and the folders in it remain invisible.
function(tabulon_include_folder target scope folder)
  cmake_parse_arguments(ARG "OWN_HEADERS" "" "" ${ARGN})
  string(REPLACE "/" "-" name ${folder})
  set(source ${PROJECT_SOURCE_DIR}/${folder})
  set(root ${PROJECT_BINARY_DIR}/include/${name})
  if(ARG_OWN_HEADERS)
    file(MAKE_DIRECTORY ${root}/${folder})
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${source} ${source}/*.h)
    foreach(header IN LISTS headers)
      file(CREATE_LINK ${source}/${header} ${root}/${folder}/${header} SYMBOLIC)
    endforeach()
  else()
    cmake_path(GET folder PARENT_PATH parent)
    file(MAKE_DIRECTORY ${root}/${parent})
    file(CREATE_LINK ${source} ${root}/${folder} SYMBOLIC)
  endif()
  target_include_directories(${target} ${scope} ${root})
endfunction()

# tabulon_unity(TARGET): all sources of the target become one translation unit if TABULON_UNITY is on. The
# build then takes a third of the time if the cache of ccache is empty. Names in anonymous namespaces must be
# unique within a target.
function(tabulon_unity target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ${TABULON_UNITY} UNITY_BUILD_BATCH_SIZE 0)
endfunction()

# tabulon_library(NAME [OWN_HEADERS] SOURCES… LINKS… PRIVATE_LINKS…): adds the library of one folder. LINKS
# are the libraries that its headers include, PRIVATE_LINKS those that only its sources include.
function(tabulon_library name)
  cmake_parse_arguments(ARG "OWN_HEADERS" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  tabulon_unity(${name})
  target_link_libraries(${name} PUBLIC tabulon_build_options ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE folder)
  if(ARG_OWN_HEADERS)
    tabulon_include_folder(${name} PUBLIC ${folder} OWN_HEADERS)
  else()
    tabulon_include_folder(${name} PUBLIC ${folder})
  endif()
  # One line for each library, for tests/source: its folder and its include path.
  set_property(GLOBAL APPEND_STRING PROPERTY TABULON_INCLUDE_PATHS
    "${folder} $<JOIN:$<TARGET_PROPERTY:${name},INCLUDE_DIRECTORIES>, >\n")
endfunction()

# tabulon_test(NAME SOURCES… LINKS…): adds a test program and its entry in ctest.
function(tabulon_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE tabulon_build_options ${ARG_LINKS} GTest::gmock GTest::gtest_main)
  tabulon_include_folder(${name} PRIVATE tests)
  tabulon_unity(${name})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()

# tabulon_corpus_sources(SOURCE…): the sources of this folder that read tests/corpus. Only these receive the
# path of the corpus, so that ccache can use the results of the others in every clone.
function(tabulon_corpus_sources)
  set_property(SOURCE ${ARGN} APPEND PROPERTY
    COMPILE_DEFINITIONS TABULON_CORPUS_DIR="${PROJECT_SOURCE_DIR}/tests/corpus")
endfunction()

# tabulon_install_compressed(FILE NAME.gz DESTINATION): compresses the file when it is installed. The
# compressed bytes are the same every time.
function(tabulon_install_compressed file name destination)
  install(CODE "
    find_program(GZIP_PROGRAM gzip REQUIRED)
    execute_process(COMMAND \"\${GZIP_PROGRAM}\" -9nc \"${file}\"
      OUTPUT_FILE \"${CMAKE_CURRENT_BINARY_DIR}/${name}\" COMMAND_ERROR_IS_FATAL ANY)
    file(INSTALL \"${CMAKE_CURRENT_BINARY_DIR}/${name}\" DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${destination}\")
  ")
endfunction()
