# How all of the project's own code is compiled: `orlo_compile(target)`.
function(orlo_compile target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /fp:precise /utf-8 $<$<BOOL:${ORLO_WARNINGS_AS_ERRORS}>:/WX>)
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
    target_compile_options(${target} PRIVATE -fsanitize=${ORLO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=${ORLO_SANITIZE})
  endif()
endfunction()
