# 32-bit Windows from Debian: GCC with POSIX threads (std::mutex), the runtime linked statically so that the DLL
# needs nothing but Windows' own libraries, tests run through Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)

set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# A host that was built to the i386 ABI may call with a stack aligned to 4 bytes only.
set(CMAKE_C_FLAGS_INIT -mstackrealign)
set(CMAKE_CXX_FLAGS_INIT -mstackrealign)
# The export list has the undecorated names of __stdcall functions.
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -Wl,--enable-stdcall-fixup")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--enable-stdcall-fixup")

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine-run.sh)
