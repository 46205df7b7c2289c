# The tree that a user gets: bin/tavenMorrel and, beside bin, config/Language.
install(TARGETS tavenMorrel RUNTIME DESTINATION bin)
install(DIRECTORY config/Language DESTINATION config)

# What other programs build on: the headers, the static libraries, and a package by which
# find_package(orlo) gives the targets orlo::utils, orlo::geo and orlo::entry. Alone: --component library.
include(CMakePackageConfigHelpers)
install(TARGETS utils geo entry EXPORT orloTargets ARCHIVE DESTINATION lib COMPONENT library)
install(DIRECTORY libs/utils/inc/ libs/geo/inc/ DESTINATION include/orlo COMPONENT library
  FILES_MATCHING PATTERN "*.h")
install(EXPORT orloTargets NAMESPACE orlo:: DESTINATION lib/cmake/orlo COMPONENT library)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/orloConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES cmake/orloConfig.cmake ${PROJECT_BINARY_DIR}/orloConfigVersion.cmake
  DESTINATION lib/cmake/orlo COMPONENT library)
