# Every source file stands as clang-format 14 lays it out.
find_program(formatter NAMES clang-format-14 clang-format)
if(NOT formatter)
  message(FATAL_ERROR "clang-format is missing: scripts/install test")
endif()
file(GLOB_RECURSE sources ${ROOT}/src/*.h ${ROOT}/src/*.cpp ${ROOT}/tests/*.h ${ROOT}/tests/*.cpp
  ${ROOT}/bench/*.h ${ROOT}/bench/*.cpp ${ROOT}/fuzz/*.h ${ROOT}/fuzz/*.cpp ${ROOT}/tools/*.h ${ROOT}/tools/*.cpp)
execute_process(COMMAND ${formatter} --dry-run -Werror ${sources} RESULT_VARIABLE failed ERROR_VARIABLE said)
if(failed)
  message(FATAL_ERROR "run clang-format -i on:\n${said}")
endif()
