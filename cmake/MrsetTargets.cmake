# What every target of the project shares.

# Warnings, and the language: C++17 without extensions.
add_library(mrset_common INTERFACE)
target_compile_features(mrset_common INTERFACE cxx_std_17)
target_compile_options(mrset_common INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast
  # Assertion reports name files relative to the project's root.
  "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=")
target_include_directories(mrset_common INTERFACE "${PROJECT_SOURCE_DIR}")

option(MRSET_WERROR "Treat warnings as errors" OFF)
if(MRSET_WERROR)
  target_compile_options(mrset_common INTERFACE -Werror)
endif()

set(MRSET_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined")
if(MRSET_SANITIZE)
  target_compile_options(mrset_common INTERFACE
    "-fsanitize=${MRSET_SANITIZE}" -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(mrset_common INTERFACE "-fsanitize=${MRSET_SANITIZE}")
endif()

option(MRSET_COVERAGE "Build for the measurement of coverage" OFF)
if(MRSET_COVERAGE)
  target_compile_options(mrset_common INTERFACE --coverage -fprofile-abs-path -fprofile-update=atomic)
  target_link_options(mrset_common INTERFACE --coverage)
  # Processes that do not end through exit() count too.
  target_sources(mrset_common INTERFACE
    "$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${PROJECT_SOURCE_DIR}/tests/coverage/flush_counters.cpp>")
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
