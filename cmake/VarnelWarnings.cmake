# Warnings for everything that is built here.
function(varnel_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /utf-8 $<$<BOOL:${VARNEL_WERROR}>:/WX>)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
      $<$<BOOL:${VARNEL_WERROR}>:-Werror>)
  endif()
endfunction()
