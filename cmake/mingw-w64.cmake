# Cross-build for Windows with mingw-w64, linked statically so that the
# executables run under wine without extra DLLs.
#
# The posix-threads variant of the compiler is preferred: Debian's default
# win32-threads one has no std::mutex or std::thread. Homebrew's mingw-w64
# ships only the unsuffixed names.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

find_program(PENDRINO_MINGW_CXX NAMES x86_64-w64-mingw32-g++-posix x86_64-w64-mingw32-g++ REQUIRED)
find_program(PENDRINO_MINGW_CC NAMES x86_64-w64-mingw32-gcc-posix x86_64-w64-mingw32-gcc REQUIRED)
find_program(PENDRINO_MINGW_RC NAMES x86_64-w64-mingw32-windres)
set(CMAKE_C_COMPILER ${PENDRINO_MINGW_CC})
set(CMAKE_CXX_COMPILER ${PENDRINO_MINGW_CXX})
if(PENDRINO_MINGW_RC)
  set(CMAKE_RC_COMPILER ${PENDRINO_MINGW_RC})
endif()

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# ctest and test discovery run the .exe files through wine, by way of a
# script that runs a program once more when wine, not a test, failed it.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine_riprova.sh)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
