# Included by CTest for each program of `orlo_add_suites`: asks `program` for its suites, and adds
# a test for each. A program that is not built is a test that fails.
if(NOT EXISTS "${program}")
  add_test("${prefix}NOT_BUILT" "${program}")
  return()
endif()
if(NOT EXISTS "${answer}"
   OR NOT "${answer}" IS_NEWER_THAN "${program}"
   OR NOT "${answer}" IS_NEWER_THAN "${CMAKE_PARENT_LIST_FILE}"
   OR NOT "${answer}" IS_NEWER_THAN "${CMAKE_CURRENT_LIST_FILE}")
  execute_process(
    COMMAND ${runner} "${program}" --gtest_list_tests
    OUTPUT_VARIABLE listed
    RESULT_VARIABLE code
    TIMEOUT 120)
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "${program} does not list its tests: ${code}")
  endif()
  # A suite begins its line and ends by a dot; its tests are indented.
  string(REGEX MATCHALL "(^|\n)[A-Za-z_][A-Za-z_0-9/]*\\." suites "${listed}")
  list(TRANSFORM suites STRIP)
  set(script "")
  foreach(suite IN LISTS suites)
    string(REGEX REPLACE "\\.$" "" name "${suite}")
    set(name "[==[${prefix}${name}]==]")
    string(APPEND script "add_test(${name}")
    foreach(word IN LISTS runner ITEMS "${program}" "--gtest_filter=${suite}*")
      string(APPEND script " [==[${word}]==]")
    endforeach()
    string(APPEND script ")\nset_tests_properties(${name} PROPERTIES ${properties})\n")
  endforeach()
  file(WRITE "${answer}" "${script}")
endif()
include("${answer}")
