# Where things are installed, and what packages are made of it. vekrun looks for its package beside itself, so
# that program, libraries and package share a folder; on Linux that is one of their own, with a link in bin.
if(WIN32)
  set(program_folder .)
  set(doc_folder .)
else()
  set(program_folder lib/vekrun)
  set(doc_folder share/doc/vekrun)
endif()

install(TARGETS vekrun Vek40CoreAPI Vek40Forms Vek40File
        RUNTIME DESTINATION ${program_folder}
        LIBRARY DESTINATION ${program_folder}
        ARCHIVE DESTINATION lib COMPONENT development EXCLUDE_FROM_ALL)
foreach(tool robocopy xcopy)
  if(TARGET ${tool})
    set_target_properties(${tool} PROPERTIES INSTALL_RPATH "$ORIGIN/..")
    install(TARGETS ${tool} RUNTIME DESTINATION ${program_folder}/tools)
  endif()
endforeach()
install(FILES README.md DESTINATION ${doc_folder})
install(DIRECTORY docs examples DESTINATION ${doc_folder}
        PATTERN out EXCLUDE PATTERN generate.sh EXCLUDE PATTERN architecture.md EXCLUDE)
if(MINGW)
  file(GLOB mingw_runtime ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/lib*.dll)
  install(FILES ${mingw_runtime} DESTINATION ${program_folder})
endif()
if(UNIX)
  install(SCRIPT cmake/InstallShellFiles.cmake)
endif()

set(CPACK_PACKAGE_NAME vekrun)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Executes build projects, trees of actions in XML files")
set(CPACK_PACKAGE_CONTACT "vekrun developers <developers@vekrun.invalid>")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
# What some actions use where it is installed.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libxcb1, xdg-utils, wine")
include(CPack)
