# Our own code compiles without a warning; libraries come in as system headers.
function(vek_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Werror)
endfunction()
