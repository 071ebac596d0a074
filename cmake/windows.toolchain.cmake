# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
# SPDX-License-Identifier: MIT
#
# 64-bit Windows, cross-compiled on Debian: for the program, its tests, and the toolkit they are
# linked with (packaging/windows/build-qt). Everything is linked statically, so that the program is
# one file.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(prefix x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${prefix}-gcc-posix)
set(CMAKE_CXX_COMPILER ${prefix}-g++-posix)
set(CMAKE_RC_COMPILER ${prefix}-windres)

# Programs are Debian's; libraries, headers and packages never are.
set(CMAKE_FIND_ROOT_PATH /usr/${prefix})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

# An inline function is compiled into every object that calls it, and the linker keeps one copy. This
# compiler believes that a caller's own copy will be kept, and relies on the registers that it leaves
# alone: another object's copy, in which the optimizer chose other ones, then breaks the caller.
#
# A function that keeps a buffer on the stack ends the program when somebody wrote past its end.
set(CMAKE_C_FLAGS_INIT "-fno-ipa-ra -fstack-protector-strong")
set(CMAKE_CXX_FLAGS_INIT "-fno-ipa-ra -fstack-protector-strong")
