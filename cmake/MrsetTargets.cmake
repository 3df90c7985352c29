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
  # Half a million addresses are relocated whenever a program starts that lies anywhere: a quarter of a short run, and tests
  # run the program thousands of times.
  target_link_options(mrset_common INTERFACE "$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-no-pie>")
endif()

option(MRSET_COVERAGE "Build for the measurement of coverage" OFF)
if(MRSET_COVERAGE)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "Coverage is measured with clang: configure the preset sanitize.")
  endif()
  # Counters in files that are mapped into memory: those of a process that ends through abort() or _exit() count too.
  target_compile_options(mrset_common INTERFACE "-fprofile-instr-generate=${PROJECT_BINARY_DIR}/profile/%c%m.profraw"
    -fcoverage-mapping "SHELL:-mllvm -runtime-counter-relocation")
  target_link_options(mrset_common INTERFACE -fprofile-instr-generate)
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
