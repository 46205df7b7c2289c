# Makes every test known to CTest. `ctest --preset NAME -N` lists them:
#
#   suite.test        unit tests; where a process costs much, a suite is one test
#   runs.FILE         whole runs of the installed executable, as runs/FILE_run.py tells them
#   languages         the installed checker of language files, over those that are delivered
#   kills.RUN         the executable killed and refused at each of its system calls
#   replay.TARGET     the inputs that fuzzers gathered (fuzz/CMakeLists.txt)
#   elsewhere         all unit tests in another time zone and language
#   threads.LOCALE.*  what several threads do at once
#   sources.PART      layout, layers, alone, scripts
#   consumer, callers, documents, viewer, packages..., needs...
#
# `installed`, `locales`, `page`, `packed` and `windows` are fixtures: CTest runs them before what
# needs them.
include(GoogleTest)
include(suites.cmake)
set(scripts ${PROJECT_SOURCE_DIR}/scripts)
set(installed ${PROJECT_BINARY_DIR}/installed)
set(tool ${installed}/bin/$<TARGET_FILE_NAME:tavenMorrel>)
set(checker ${installed}/bin/$<TARGET_FILE_NAME:orloLanguageCheck>)
set(locales ${PROJECT_SOURCE_DIR}/build/locales) # the same for all builds
set(patience 300) # seconds after which a test counts as hanging

# orlo_script_test(NAME NEEDS COMMAND...): NEEDS are fixtures, with commas between.
function(orlo_script_test name needs)
  add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  string(REPLACE "," ";" needs "${needs}")
  set_tests_properties(${name} PROPERTIES TIMEOUT ${patience} FIXTURES_REQUIRED "${needs}")
endfunction()

# orlo_fixture(NAME COMMAND...): one test that sets up what others need.
function(orlo_fixture name)
  add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${patience} FIXTURES_SETUP ${name})
endfunction()

if(ORLO_SANITIZE STREQUAL "thread")
  # One locale that comes from no file, and one whose file all threads share.
  foreach(locale C C.UTF-8)
    orlo_add_suites(orlo_thread_tests PREFIX threads.${locale}. RUNNER ${CMAKE_COMMAND} -E env
      LC_ALL=${locale} TSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/threads/suppressions
      # Their files lie beside the program, which both locales share.
      PROPERTIES TIMEOUT ${patience} RESOURCE_LOCK folder)
  endforeach()
  return()
endif()

# A single test costs a process: nothing on Linux, but a tenth of a second and more with
# sanitizers, with counters of coverage and under Wine.
string(FIND "${CMAKE_CXX_FLAGS}" "--coverage" counted)
if(WIN32)
  set(unit_properties FIXTURES_REQUIRED windows)
endif()
foreach(target orlo_tests orlo_system_tests)
  if(WIN32 AND target STREQUAL "orlo_system_tests")
    # These show boxes of their own, which nobody else may answer.
    list(APPEND unit_properties RESOURCE_LOCK desktop)
  endif()
  if(WIN32 OR ORLO_SANITIZE OR NOT counted EQUAL -1)
    orlo_add_suites(${target} PROPERTIES TIMEOUT ${patience} ${unit_properties})
  else()
    gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
      PROPERTIES TIMEOUT ${patience})
  endif()
endforeach()

orlo_fixture(installed ${CMAKE_COMMAND} -D build=${PROJECT_BINARY_DIR} -D prefix=${installed}
  -D tool=${tool} -D checker=${checker} -P ${CMAKE_CURRENT_SOURCE_DIR}/installed.cmake)

# Whole runs; on Windows each answers the boxes of one desktop, so that one runs at a time, and
# beside no test that shows a box.
set(run python3 ${CMAKE_CURRENT_SOURCE_DIR}/runs/whole_run.py --tool ${tool}
  --installed ${installed} --locales ${locales})
if(WIN32)
  list(PREPEND run ${scripts}/windows-session run)
  list(APPEND run --helpers ${CMAKE_CURRENT_BINARY_DIR})
  set(run_fixtures installed,locales,windows)
else()
  set(run_fixtures installed,locales)
endif()
orlo_fixture(locales ${scripts}/make-locales ${locales})
foreach(name entry getncs language measuring slistat surroundings)
  orlo_script_test(runs.${name} ${run_fixtures} ${run} --file ${name})
  if(WIN32)
    # A start of a process takes longer there.
    set_tests_properties(runs.${name} PROPERTIES RESOURCE_LOCK desktop TIMEOUT 900)
  endif()
endforeach()

set(check_languages python3 ${CMAKE_CURRENT_SOURCE_DIR}/languagecheck/checker_run.py
  --checker ${checker} --languages ${installed}/config/Language)
if(WIN32)
  orlo_script_test(languages installed,windows ${scripts}/windows-session run ${check_languages})
else()
  orlo_script_test(languages installed ${check_languages})
endif()

if(WIN32)
  # The session: a Windows of its own, a display that nobody sees, and a server that stays.
  orlo_fixture(windows ${scripts}/windows-session start)
  add_test(NAME windows.end COMMAND ${scripts}/windows-session stop)
  set_tests_properties(windows.end PROPERTIES FIXTURES_CLEANUP windows)
  foreach(program tool checker)
    orlo_script_test(needsSystemLibrariesOnly.${program} installed
      ${scripts}/check-imports ${${program}})
  endforeach()
  orlo_script_test(consumer installed,windows ${scripts}/check-consumer windows ${installed})
  orlo_script_test(callers installed,windows ${scripts}/check-callers ${tool})
  set_tests_properties(callers PROPERTIES TIMEOUT 900)
  return()
endif()

if(ORLO_SANITIZE OR NOT counted EQUAL -1)
  return()
endif()

# What is asked once, of the executable as it is handed over.
orlo_script_test(elsewhere locales ${CMAKE_COMMAND} -E env TZ=XYZ-9 LC_ALL=de_DE.UTF-8
  LOCPATH=${locales} $<TARGET_FILE:orlo_tests> --gtest_brief=1)
foreach(program tool checker)
  orlo_script_test(needsNoLibrary.${program} installed ${scripts}/check-imports ${${program}})
endforeach()
foreach(run slistat-started slistat-ended getncs)
  orlo_script_test(kills.${run} installed ${scripts}/check-kills ${tool} ${run})
endforeach()
orlo_script_test(consumer installed ${scripts}/check-consumer native ${installed})
orlo_script_test(callers installed ${scripts}/check-callers ${tool})
orlo_script_test(documents installed ${scripts}/check-docs ${tool})
# They take the longest, and so begin.
orlo_fixture(page ${scripts}/viewer)
orlo_fixture(packed ${scripts}/package --trial --tested)
set_tests_properties(packed PROPERTIES FIXTURES_REQUIRED page)
orlo_script_test(packages packed ${scripts}/check-packages --made)
orlo_script_test(packages.again packed ${scripts}/check-packages --again)
orlo_script_test(viewer installed,page ${scripts}/check-viewer ${tool})
set_tests_properties(page packed packages packages.again viewer PROPERTIES TIMEOUT 3000 COST 1000)
foreach(part layout layers alone scripts)
  orlo_script_test(sources.${part} "" ${scripts}/check-sources ${part})
endforeach()
orlo_script_test(sources.layersRefuse "" python3 ${CMAKE_CURRENT_SOURCE_DIR}/sources/layers_test.py)
