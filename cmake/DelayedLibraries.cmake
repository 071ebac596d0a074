# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
# SPDX-License-Identifier: MIT

# brindle_delay(TARGET LIBRARY...): the program loads these libraries of Windows when it first calls
# them. Windows looks for them beside the program first, where a stranger may have put one of that name,
# until the program says otherwise; it never does so for the other libraries of the system that are used
# here (the known ones, HKLM\System\CurrentControlSet\Control\Session Manager\KnownDLLs).
function(brindle_delay target)
  set(folder ${CMAKE_BINARY_DIR}/delayed)
  execute_process(COMMAND ${CMAKE_SOURCE_DIR}/packaging/windows/make-delayed ${folder} ${ARGN}
    COMMAND_ERROR_IS_FATAL ANY)
  target_link_directories(${target} BEFORE PRIVATE ${folder})
endfunction()
