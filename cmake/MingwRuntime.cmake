# The compiler's run-time libraries lie beside the programs, so that the folder works on its own. Every module
# shares them: exceptions and run-time types cross module borders only so.
foreach(library libstdc++-6.dll libgcc_s_seh-1.dll libgcc_s_dw2-1.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
                  OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
  # A name that this compiler does not have comes back as it is.
  if(IS_ABSOLUTE "${file}" AND EXISTS "${file}")
    file(MAKE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    execute_process(COMMAND ${CMAKE_STRIP} -o ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${library} ${file}
                    COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()
