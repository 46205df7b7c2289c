# Registers the suites of a GoogleTest program, where a process for each single test would cost
# more than the tests. CTest includes what `orlo_add_suites` writes as it starts, and the program
# is asked again for its suites whenever it is newer than the answer.

# orlo_add_suites(TARGET [PREFIX TEXT] [RUNNER COMMAND...] [PROPERTIES NAME VALUE...])
# The runner stands before the program, as an emulator does.
function(orlo_add_suites target)
  cmake_parse_arguments(PARSE_ARGV 1 given "" "PREFIX" "RUNNER;PROPERTIES")
  get_target_property(emulator ${target} CROSSCOMPILING_EMULATOR)
  if(emulator)
    list(PREPEND given_RUNNER ${emulator})
  endif()
  string(MAKE_C_IDENTIFIER "${target}_${given_PREFIX}" base)
  set(base ${CMAKE_CURRENT_BINARY_DIR}/${base})
  file(GENERATE OUTPUT ${base}_suites.cmake CONTENT "\
set(program [==[$<TARGET_FILE:${target}>]==])
set(prefix [==[${given_PREFIX}]==])
set(runner [==[${given_RUNNER}]==])
set(properties [==[${given_PROPERTIES}]==])
set(answer [==[${base}_tests.cmake]==])
include([==[${CMAKE_CURRENT_FUNCTION_LIST_DIR}/askforsuites.cmake]==])
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${base}_suites.cmake)
endfunction()
