# Installs a build anew, and looks whether what a user needs is there.
file(REMOVE_RECURSE ${prefix})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${prefix}
  COMMAND_ERROR_IS_FATAL ANY)
foreach(file ${tool} ${checker} ${prefix}/config/Language/english/language.loc)
  if(NOT EXISTS ${file})
    message(FATAL_ERROR "${file} is not there")
  endif()
endforeach()
