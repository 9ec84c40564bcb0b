# Builds for 64-bit Windows with Debian's cross compiler, the variant with POSIX threads. What
# scripts/build-windows has made of Debian's sources is found in QUERNA_WINDOWS_LIBRARIES.
if(CMAKE_HOST_WIN32)
    return() # there the usual compiler builds for Windows, and Qt's installer brings the libraries
endif()
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The compiler's own libraries go into the program: Windows has none of them. Without the last
# line CMake ends the static part too early for what the compiler adds by itself.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_LINK_SEARCH_START_STATIC ON)
set(CMAKE_LINK_SEARCH_END_STATIC ON)

set(QUERNA_DRAWN_ICONS ON CACHE BOOL "Debian has no sources of Qt's SVG library")
set(QUERNA_WINDOWS_LIBRARIES "" CACHE PATH "Where Qt and QScintilla for Windows are")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUERNA_WINDOWS_LIBRARIES)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${QUERNA_WINDOWS_LIBRARIES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
list(APPEND CMAKE_PREFIX_PATH ${QUERNA_WINDOWS_LIBRARIES})

# moc and rcc are those of the machine that builds; their version is the same.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)

find_program(QUERNA_WINE wine)
if(QUERNA_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${QUERNA_WINE})
endif()
