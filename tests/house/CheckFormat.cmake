# Every source file stands as clang-format 14 lays it out. Other releases lay some lines out otherwise: where there is
# no 14 (Debian 13) nothing is checked, and the test counts as skipped.
find_program(formatter NAMES clang-format-14 clang-format)
if(NOT formatter)
  message(FATAL_ERROR "clang-format is missing: scripts/install test")
endif()
execute_process(COMMAND ${formatter} --version OUTPUT_VARIABLE release)
if(NOT release MATCHES "version 14\\.")
  string(STRIP "${release}" release)
  message("SKIPPED: the layout is that of clang-format 14, here is ${release}")
  return()
endif()
file(GLOB_RECURSE sources ${ROOT}/src/*.h ${ROOT}/src/*.cpp ${ROOT}/tests/*.h ${ROOT}/tests/*.cpp
  ${ROOT}/bench/*.h ${ROOT}/bench/*.cpp ${ROOT}/fuzz/*.h ${ROOT}/fuzz/*.cpp ${ROOT}/tools/*.h ${ROOT}/tools/*.cpp)
execute_process(COMMAND ${formatter} --dry-run -Werror ${sources} RESULT_VARIABLE failed ERROR_VARIABLE said)
if(failed)
  message(FATAL_ERROR "run clang-format -i on:\n${said}")
endif()
