# Cross-builds for Windows with MinGW-w64 (GCC, POSIX threads).
#   VEK_TRIPLE         x86_64-w64-mingw32 (default) or i686-w64-mingw32
#   VEK_MINGW_PREFIX   where windows/deps.sh put the third-party libraries
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_VERSION 10.0)
if(NOT VEK_TRIPLE)
  set(VEK_TRIPLE x86_64-w64-mingw32)
endif()
if(VEK_TRIPLE MATCHES "^x86_64")
  set(CMAKE_SYSTEM_PROCESSOR AMD64)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../windows/wine-run)
else()
  set(CMAKE_SYSTEM_PROCESSOR x86)
  # Numbers of 64 bits, as everywhere else: not the 80 of the old coprocessor.
  set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
  set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../windows/wine-run32)
endif()

# By their full names: the plain ones follow update-alternatives and may lack std::thread.
set(CMAKE_C_COMPILER ${VEK_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${VEK_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${VEK_TRIPLE}-windres)

# Without this, the trial compilations run with neither.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VEK_TRIPLE VEK_MINGW_PREFIX)

# Only the prefix is searched: a header of this machine's own C library would break every compilation.
set(CMAKE_FIND_ROOT_PATH ${VEK_MINGW_PREFIX})
set(CMAKE_PREFIX_PATH ${VEK_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
