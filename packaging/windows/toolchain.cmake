# Builds for 64-bit Windows with Debian's MinGW, and runs what was built under Wine. The folder of
# the libraries that scripts/windows.sh makes is in the environment, since CMake reads this file
# again for each of its own tests.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(machine x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${machine}-gcc-posix)
set(CMAKE_CXX_COMPILER ${machine}-g++-posix)
set(CMAKE_RC_COMPILER ${machine}-windres)

set(CMAKE_FIND_ROOT_PATH $ENV{MORVANE_WINDOWS_LIBRARIES} /usr/${machine})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine.sh)
set(ENV{PKG_CONFIG_LIBDIR} $ENV{MORVANE_WINDOWS_LIBRARIES}/lib/pkgconfig)
