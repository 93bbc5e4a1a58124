# Windows programs by Debian's MinGW; KIV_WINDOWS_PROCESSOR, set by the toolchain file of the preset, names the processor.
# The runtime is linked statically: a program needs no DLL that Windows does not bring.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${KIV_WINDOWS_PROCESSOR})
set(CMAKE_CXX_COMPILER ${KIV_WINDOWS_PROCESSOR}-w64-mingw32-g++-posix)
set(CMAKE_C_COMPILER ${KIV_WINDOWS_PROCESSOR}-w64-mingw32-gcc-posix)
set(CMAKE_RC_COMPILER ${KIV_WINDOWS_PROCESSOR}-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_FIND_ROOT_PATH /usr/${KIV_WINDOWS_PROCESSOR}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
