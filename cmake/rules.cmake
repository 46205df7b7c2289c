# The product's sources pass .clang-tidy as they are compiled, so that only what has changed is
# looked at again.
if(ORLO_RULES)
  find_program(clang_tidy clang-tidy REQUIRED)
  foreach(target utilsCore utilsPlatform entry geo toolCommands tavenMorrel languageChecks
      orloLanguageCheck)
    set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${clang_tidy};--quiet")
    get_target_property(folder ${target} SOURCE_DIR)
    get_target_property(sources ${target} SOURCES)
    foreach(source IN LISTS sources)
      cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder})
      if(EXISTS ${source})
        set_property(SOURCE ${source} TARGET_DIRECTORY ${target}
          APPEND PROPERTY OBJECT_DEPENDS ${PROJECT_SOURCE_DIR}/.clang-tidy)
      endif()
    endforeach()
  endforeach()
endif()
