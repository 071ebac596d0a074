# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
# SPDX-License-Identifier: MIT

# Windows looks for these libraries of its own beside the program first, where a stranger may have put one
# of that name, until the program says otherwise. It never does so for the other ones that are used here
# (the known ones, HKLM\System\CurrentControlSet\Control\Session Manager\KnownDLLs). These are loaded
# when the program first calls them.
set(brindle_delayed authz d3d11 d3d9 dwmapi dwrite dxgi mpr netapi32 userenv uxtheme version winmm
  wtsapi32)

# brindle_ship(TARGET [COMPONENT]): a program that people get, installed with that component where the
# system has a package of its own for it.
function(brindle_ship target)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
  if(NOT WIN32)
    target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now)
    if(ARGC GREATER 1)
      install(TARGETS ${target} DESTINATION bin COMPONENT ${ARGV1})
    else()
      install(TARGETS ${target} DESTINATION bin)
    endif()
    return()
  endif()
  set(folder ${CMAKE_BINARY_DIR}/delayed)
  execute_process(COMMAND ${CMAKE_SOURCE_DIR}/packaging/windows/make-delayed ${folder} ${brindle_delayed}
    COMMAND_ERROR_IS_FATAL ANY)
  target_link_directories(${target} BEFORE PRIVATE ${folder})
  # Half as large without the names of the functions; the packages take this file as it is. The names
  # stay beside it, for whoever gets a report of a crash.
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE:${target}> $<TARGET_FILE:${target}>.symbols
    COMMAND ${CMAKE_STRIP} $<TARGET_FILE:${target}> VERBATIM)
  if(BRINDLE_SIGN_COMMAND)
    add_custom_command(TARGET ${target} POST_BUILD
      COMMAND ${BRINDLE_SIGN_COMMAND} $<TARGET_FILE:${target}> VERBATIM)
  endif()
  install(TARGETS ${target} DESTINATION .)
endfunction()
