# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
# SPDX-License-Identifier: MIT
# Renders the SVG pictures to PNG at 100 to 400 % and embeds those, so that the program needs no SVG
# library at run time.

find_program(RSVG_CONVERT rsvg-convert REQUIRED)

# brindle_pictures(TARGET NAME=WIDTH...): pictures/NAME.svg becomes :/pictures/NAME.png, WIDTH pixels
# wide at 100 %, with NAME@2x.png to NAME@4x.png beside it.
function(brindle_pictures target)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/pictures)
  file(MAKE_DIRECTORY ${folder})
  foreach(picture IN LISTS ARGN)
    string(REPLACE "=" ";" picture ${picture})
    list(GET picture 0 name)
    list(GET picture 1 width)
    foreach(scale RANGE 1 4)
      math(EXPR pixels "${width} * ${scale}")
      set(suffix "")
      if(scale GREATER 1)
        set(suffix "@${scale}x")
      endif()
      set(png ${folder}/${name}${suffix}.png)
      add_custom_command(OUTPUT ${png}
        COMMAND ${RSVG_CONVERT} --width ${pixels} --output ${png}
          ${CMAKE_CURRENT_SOURCE_DIR}/pictures/${name}.svg
        DEPENDS pictures/${name}.svg VERBATIM)
      list(APPEND pngs ${png})
    endforeach()
  endforeach()
  qt_add_resources(${target} ${target}_pictures PREFIX /pictures BASE ${folder} FILES ${pngs})
endfunction()
