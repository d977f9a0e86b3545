# What every folder's CMakeLists.txt stands on.
include_guard()
include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()
add_compile_options(-Wall -Wextra -Wnon-virtual-dtor -ffunction-sections -fdata-sections)
# GCC 12 sees overlaps in std::string that can't be and, where its header is precompiled, writes beyond it.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  add_compile_options(-Wno-restrict)
  if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
    add_compile_options(-Wno-array-bounds -Wno-stringop-overflow)
  endif()
endif()

# Precompiled headers: two thirds of most files' time is reading these. Builds by clang and the preset asan do
# without them, and so find a file that doesn't include what it uses.
set(QUORVANTIS_HEADERS <algorithm> <chrono> <functional> <map> <memory> <optional> <span> <string>
    <string_view> <variant> <vector>)
function(quorvantis_precompile_headers name)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_precompile_headers(${name} PRIVATE ${QUORVANTIS_HEADERS} ${ARGN})
  endif()
endfunction()

# quorvantis_library(NAME SOURCES... [USES LIBRARIES...] [HEADERS HEADERS...]): one static library a folder.
# What a folder may include is what its library uses, and no more; tests/conventions proves it from the
# include lines. HEADERS are precompiled too.
function(quorvantis_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES;HEADERS")
  add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
  if(arg_HEADERS)
    quorvantis_precompile_headers(${name} ${arg_HEADERS})
  elseif(name STREQUAL platform_error)  # which all others use
    quorvantis_precompile_headers(${name})
  elseif(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_precompile_headers(${name} REUSE_FROM platform_error)
  endif()
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${arg_USES})
endfunction()

# quorvantis_test(NAME SOURCES... [USES LIBRARIES...]): a GoogleTest program; each of its tests is a
# ctest test by name. That of a test with a parameter ends with the name that its suite generates.
function(quorvantis_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES")
  find_package(GTest REQUIRED)
  include(GoogleTest)
  # GoogleTest's headers take longer to compile than most tests: once for all of them.
  if(NOT TARGET quorvantis_test_headers)
    file(WRITE ${CMAKE_BINARY_DIR}/quorvantis_test_headers.cpp "")
    add_executable(quorvantis_test_headers ${CMAKE_BINARY_DIR}/quorvantis_test_headers.cpp)
    target_link_libraries(quorvantis_test_headers PRIVATE GTest::gmock GTest::gtest_main)
    target_compile_options(quorvantis_test_headers PRIVATE -fPIC)
    target_precompile_headers(quorvantis_test_headers PRIVATE
      <gmock/gmock.h> <gtest/gtest.h> <filesystem> <fstream> <functional> <map> <memory> <optional>
      <string> <variant> <vector>)
  endif()
  add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
  target_precompile_headers(${name} REUSE_FROM quorvantis_test_headers)
  # As Qt asks of the tests that use it: only what is compiled alike can share the headers.
  target_compile_options(${name} PRIVATE -fPIC)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${arg_USES} GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES PROPERTIES TIMEOUT 120)
endfunction()

# quorvantis_program_tests(PREFIX FILES...): tests of the built program, written in Python; one ctest test,
# PREFIX.CLASS.METHOD, for each test_… of the files' classes.
function(quorvantis_program_tests prefix)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  set(environment "QUORVANTIS=$<TARGET_FILE:quorvantis>"
      "PYTHONPATH=${PROJECT_SOURCE_DIR}/tests/cli:${PROJECT_SOURCE_DIR}/tests/support")
  # The window, as far as a test needs it: without a display, doing what it is asked.
  if(QUORVANTIS_HAS_WINDOW)
    list(APPEND environment "SETTINGS_PICTURE=${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/settings-picture")
  endif()
  foreach(file IN LISTS ARGN)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file}.py)
    file(STRINGS ${file}.py lines REGEX "^(class|    def test_)")
    foreach(line IN LISTS lines)
      if(line MATCHES "^class ([A-Za-z]+)")
        set(class ${CMAKE_MATCH_1})
        continue()
      endif()
      string(REGEX REPLACE "^ *def (test_[a-z0-9_]+).*" "\\1" method "${line}")
      set(name ${prefix}.${class}.${method})
      add_test(NAME ${name}
               COMMAND ${Python3_EXECUTABLE} -B -m unittest ${file}.${class}.${method}
               WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
      set_tests_properties(${name} PROPERTIES TIMEOUT 120 ENVIRONMENT "${environment}")
    endforeach()
  endforeach()
endfunction()

# quorvantis_bench(NAME SOURCES... [USES LIBRARIES...]): a benchmark program, run by hand.
function(quorvantis_bench name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES")
  add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${arg_USES})
endfunction()

# quorvantis_fuzz(NAME SOURCE [USES LIBRARIES...]): with QUORVANTIS_FUZZ a libFuzzer target; with the
# tests a program that replays fuzz/corpus/NAME.
function(quorvantis_fuzz name source)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "USES")
  if(QUORVANTIS_FUZZ)
    add_executable(fuzz_${name} ${source} ${PROJECT_SOURCE_DIR}/fuzz/sanitizer_options.cpp)
    target_compile_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    target_include_directories(fuzz_${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(fuzz_${name} PRIVATE ${arg_USES})
    if(NOT TARGET fuzz_targets)
      add_custom_target(fuzz_targets)
    endif()
    add_dependencies(fuzz_targets fuzz_${name})
  elseif(QUORVANTIS_TESTS)
    add_executable(replay_${name} ${source} ${PROJECT_SOURCE_DIR}/fuzz/replay.cpp)
    target_include_directories(replay_${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(replay_${name} PRIVATE ${arg_USES})
    add_test(NAME replay.${name}
             COMMAND replay_${name} ${PROJECT_SOURCE_DIR}/fuzz/corpus/${name})
  endif()
endfunction()
