# How every target is compiled. Warnings are errors: a warning is mended, never silenced for a whole target.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC_MOC_OPTIONS --include cstddef)  # moc 6.4 stumbles over some C++20 headers without it

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")  # -O3 of gcc 12 warns falsely about string concatenation

# Contraction of a*b+c would make golden numbers depend on the build machine.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror -ffp-contract=off)

find_program(KESTRAVA_CCACHE ccache)
if(KESTRAVA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Paths below the checkout count as relative, so that every checkout finds what another one has compiled.
  set(CMAKE_CXX_COMPILER_LAUNCHER env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${KESTRAVA_CCACHE}")
endif()

set(KESTRAVA_SANITIZE "" CACHE STRING "Value of -fsanitize= for everything, e.g. address,undefined")
if(KESTRAVA_SANITIZE)
  add_compile_options(-fsanitize=${KESTRAVA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${KESTRAVA_SANITIZE})
endif()
if(KESTRAVA_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)  # our own code guides the fuzzer, too
endif()
option(KESTRAVA_COVERAGE "Measure test coverage" OFF)
if(KESTRAVA_COVERAGE)
  add_compile_options(--coverage -fprofile-abs-path)
  add_link_options(--coverage)
endif()

# The big headers of test programs and windows, compiled once: more than half of a build from nothing. Off where the
# compiler cache knows the files already, because it does not know precompiled headers from one checkout to the next.
option(KESTRAVA_PRECOMPILE "Precompile the big headers" OFF)

# kestrava_precompile(<target> <headers>...): for the target itself.
# kestrava_precompile(<target> REUSE_FROM <other>): what another one with the same flags has compiled.
function(kestrava_precompile target)
  if(KESTRAVA_PRECOMPILE)
    target_precompile_headers(${target} ${ARGN})
  endif()
endfunction()

# Test sources of a folder, several to a compilation: most of the time for one goes into headers that all of them need.
# For builds from nothing. Daily builds compile each alone, so that a source without its includes does not go unseen.
option(KESTRAVA_JOIN_TESTS "Compile test sources of a folder together" OFF)

# kestrava_join_test(<target> <apart>...): those named are compiled alone, as their unnamed things bear names that
# others of the folder have too.
function(kestrava_join_test target)
  if(KESTRAVA_JOIN_TESTS)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
    set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endif()
endfunction()

# For test code, with the same arguments: it needs no optimiser, and that of gcc 12 warns falsely about strings whose
# header was precompiled.
function(kestrava_precompile_test target)
  if(KESTRAVA_PRECOMPILE)
    target_compile_options(${target} PRIVATE -O0)
  endif()
  kestrava_precompile(${target} ${ARGN})
endfunction()
