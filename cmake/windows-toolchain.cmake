# Cross-building for 64-bit Windows on Debian. SALDORO_WINDOWS_TOOLKIT, given on the command line
# or in the environment, is the folder that scripts/build-windows.sh installs the toolkit to.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Kept in the cache: a later run in the same folder needs no environment.
set(SALDORO_WINDOWS_TOOLKIT "$ENV{SALDORO_WINDOWS_TOOLKIT}" CACHE PATH "Qt built for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES SALDORO_WINDOWS_TOOLKIT)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${SALDORO_WINDOWS_TOOLKIT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
