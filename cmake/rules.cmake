# The product's sources pass .clang-tidy as they are compiled, so that only what has changed is
# looked at again.
if(ORLO_RULES)
  find_program(clang_tidy clang-tidy REQUIRED)
  # Where the rules change, the commands do, and with them all is looked at anew.
  set(rules ${PROJECT_SOURCE_DIR}/.clang-tidy)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${rules})
  file(MD5 ${rules} rules_sum)
  foreach(target utilsCore utilsPlatform entry geo toolCommands tavenMorrel languageChecks
      orloLanguageCheck)
    set_target_properties(${target} PROPERTIES
      CXX_CLANG_TIDY "${clang_tidy};--quiet;--extra-arg=-DORLO_RULES_SUM=0x${rules_sum}"
      UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
  endforeach()
endif()
