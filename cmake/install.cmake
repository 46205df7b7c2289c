# The tree that a user gets: bin/tavenMorrel, bin/orloLanguageCheck and, beside bin,
# config/Language.
install(TARGETS tavenMorrel orloLanguageCheck RUNTIME DESTINATION bin)
install(DIRECTORY config/Language DESTINATION config)

# What other programs build on: the headers, the static libraries, and a package by which
# find_package(orlo) gives the targets orlo::utils, orlo::geo and orlo::entry. Alone:
# --component library.
include(CMakePackageConfigHelpers)
install(TARGETS utils geo entry EXPORT orloTargets ARCHIVE DESTINATION lib COMPONENT library)
install(DIRECTORY libs/utils/inc/ libs/geo/inc/ DESTINATION include/orlo COMPONENT library
  FILES_MATCHING PATTERN "*.h")
install(EXPORT orloTargets NAMESPACE orlo:: DESTINATION lib/cmake/orlo COMPONENT library)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/orloConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES cmake/orloConfig.cmake ${PROJECT_BINARY_DIR}/orloConfigVersion.cmake
  DESTINATION lib/cmake/orlo COMPONENT library)

# For those who build without CMake.
if(MINGW)
  set(orlo_system_libraries "-luser32 -l:libssp.a")
  set(orlo_entry_options -municode)
elseif(WIN32)
  set(orlo_system_libraries "-luser32")
else()
  set(orlo_system_libraries "-pthread")
endif()
foreach(name orloutils orlogeo orloentry)
  configure_file(packaging/pkgconfig/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION lib/pkgconfig COMPONENT library)
endforeach()

# What there is to read. The page that shows a measured platform comes along where it was made.
set(ORLO_VIEWER_PAGE ${PROJECT_SOURCE_DIR}/build/viewer/tavenMorrelViewer.html CACHE FILEPATH
  "The page that shows a measured platform; left out if it is not there")
if(WIN32)
  set(orlo_documents doc)
else()
  set(orlo_documents share/doc/tavenMorrel)
  foreach(name tavenMorrel orloLanguageCheck)
    configure_file(packaging/linux/${name}.1.in ${name}.1 @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.1 DESTINATION share/man/man1)
  endforeach()
endif()
install(FILES CHANGELOG.md docs/commandline.md docs/installing.md docs/languagefile.md
  docs/measuringdata.md docs/measuringdata.xsd docs/result.md docs/result.xsd docs/translating.md
  DESTINATION ${orlo_documents})
install(FILES ${ORLO_VIEWER_PAGE} DESTINATION ${orlo_documents} OPTIONAL)
