# The installed package: find_package(orlo) gives orlo::utils, orlo::geo and orlo::entry.
include(CMakeFindDependencyMacro)
if(NOT WIN32)
  find_dependency(Threads)
endif()
include(${CMAKE_CURRENT_LIST_DIR}/orloTargets.cmake)
