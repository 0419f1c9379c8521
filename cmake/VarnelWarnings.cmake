# Warnings for everything that is built here.
function(varnel_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${VARNEL_WERROR}>:-Werror>)
endfunction()
