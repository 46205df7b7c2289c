# How all of the project's own code is compiled: `orlo_compile(target)`.
function(orlo_compile target)
  if(MSVC)
    target_compile_options(${target} PRIVATE
      /W4 /fp:precise /utf-8 $<$<BOOL:${ORLO_WARNINGS_AS_ERRORS}>:/WX>)
    return()
  endif()
  # No fused operations: the last digits of a coordinate must not depend on the compiler.
  target_compile_options(${target} PRIVATE
    -ffp-contract=off -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${ORLO_WARNINGS_AS_ERRORS}>:-Werror>)
  # Files and directories live by value, also in vectors, and never go by a base pointer.
  target_compile_options(${target} PRIVATE
    $<$<CXX_COMPILER_ID:Clang>:-Wno-delete-non-abstract-non-virtual-dtor>)
  if(ORLO_SANITIZE)
    target_compile_options(${target} PRIVATE
      -fsanitize=${ORLO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=${ORLO_SANITIZE})
  endif()
endfunction()

# The same for what is handed over: `orlo_compile_product(target)`. A fault that slips through ends
# the process instead of being of use to somebody. Sanitizers do this in their own way, and the
# fortified calls need an optimised build. Each function has a section, so that an executable takes
# those alone that it needs.
function(orlo_compile_product target)
  orlo_compile(${target})
  if(MSVC OR ORLO_SANITIZE)
    return()
  endif()
  # No path of this machine gets into a file, and one source gives the same bytes everywhere.
  target_compile_options(${target} PRIVATE
    -ffunction-sections -fdata-sections -fstack-protector-strong
    $<$<BOOL:${ORLO_SYMBOLS}>:-g>
    # Where each local stands at each instruction would take a third of the time to compile.
    $<$<AND:$<BOOL:${ORLO_SYMBOLS}>,$<CXX_COMPILER_ID:GNU>>:-fno-var-tracking-assignments>
    $<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>
    $<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${PROJECT_BINARY_DIR}=build>)
  if(WIN32)
    set(level 2)
  else()
    set(level 3)
    target_compile_definitions(${target} PRIVATE _GLIBCXX_ASSERTIONS)
    target_compile_options(${target} PRIVATE -fstack-clash-protection)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|amd64")
      target_compile_options(${target} PRIVATE -fcf-protection=full)
    endif()
  endif()
  target_compile_options(${target} PRIVATE
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
    $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=${level}>)
endfunction()

# For sources that run once, or seldom, or spend their time elsewhere: loops that are doubled and
# copied for speed would only make them larger. To be added to their options.
set(orlo_keep_small "$<$<AND:$<CONFIG:Release>,$<NOT:$<CXX_COMPILER_ID:MSVC>>>:-O2>")

# How an executable that is handed over is linked: `orlo_link(target)`. One file that runs wherever
# it is copied, at addresses that nobody can foretell.
function(orlo_link target)
  # An uncaught exception ends the process in silence. What the runtime library would say, with its
  # reader of mangled names, takes 47 KB.
  set(silence -Wl,--defsym=_ZN9__gnu_cxx27__verbose_terminate_handlerEv=abort)
  if(MSVC)
    # The manifest comes with the resources.
    target_link_options(${target} PRIVATE /MANIFEST:NO)
  elseif(MINGW)
    # Without its time of birth two builds of one source are the same.
    target_link_options(${target} PRIVATE -static ${silence}
      -Wl,--gc-sections,--dynamicbase,--high-entropy-va,--nxcompat,--no-insert-timestamp)
  elseif(NOT WIN32 AND NOT ORLO_SANITIZE)
    # Linked statically there is less to map at each start.
    target_link_options(${target} PRIVATE -static-pie ${silence}
      -Wl,--gc-sections,-z,relro,-z,now,-z,noexecstack,-z,pack-relative-relocs)
  endif()
endfunction()

# What Windows shows of an executable that is handed over, and how it treats its windows:
# `orlo_describe(target "description")`.
function(orlo_describe target description)
  if(NOT WIN32)
    return()
  endif()
  set(resources ${PROJECT_SOURCE_DIR}/packaging/windows)
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  configure_file(${resources}/executable.rc.in ${script} @ONLY)
  target_sources(${target} PRIVATE ${script})
  set_source_files_properties(${script} PROPERTIES
    OBJECT_DEPENDS "${resources}/tavenMorrel.ico;${resources}/tavenMorrel.manifest")
endfunction()
