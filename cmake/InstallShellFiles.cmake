# Runs the installed vekrun for what is made of its commands and its catalogue.
set(root "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
if(CMAKE_INSTALL_PREFIX MATCHES "/usr$")
  set(zsh_folder share/zsh/vendor-completions)
else()
  set(zsh_folder share/zsh/site-functions)
endif()

function(print_to file)
  get_filename_component(folder "${root}/${file}" DIRECTORY)
  file(MAKE_DIRECTORY "${folder}")
  message(STATUS "Installing: ${root}/${file}")
  execute_process(COMMAND "${root}/lib/vekrun/vekrun" ${ARGN} OUTPUT_FILE "${root}/${file}"
                  COMMAND_ERROR_IS_FATAL ANY)
endfunction()

print_to(share/man/man1/vekrun.1 help --man)
print_to(share/bash-completion/completions/vekrun completion bash)
print_to(${zsh_folder}/_vekrun completion zsh)
print_to(share/fish/vendor_completions.d/vekrun.fish completion fish)
print_to(share/vekrun/vekproj.xsd schema)

file(MAKE_DIRECTORY "${root}/bin")
file(CREATE_LINK ../lib/vekrun/vekrun "${root}/bin/vekrun" SYMBOLIC)
