# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
# SPDX-License-Identifier: MIT
# Renders the SVG pictures to PNG at 100 to 400 % and embeds those, so that the program needs no SVG
# library at run time.

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(PNGTOPNM pngtopnm REQUIRED)

# brindle_pictures(TARGET NAME=WIDTH[=plain]...): pictures/NAME.svg becomes :/pictures/NAME.png, WIDTH
# pixels wide at 100 %, with NAME@2x.png to NAME@4x.png beside it. A plain picture, which has no
# transparent part, is NAME.ppm at 100 % instead: larger, and read in a quarter of the time.
function(brindle_pictures target)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/pictures)
  file(MAKE_DIRECTORY ${folder})
  foreach(picture IN LISTS ARGN)
    string(REPLACE "=" ";" picture ${picture})
    list(GET picture 0 name)
    list(GET picture 1 width)
    set(kind "")
    list(LENGTH picture parts)
    if(parts EQUAL 3)
      list(GET picture 2 kind)
    endif()
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
      if(kind STREQUAL plain AND scale EQUAL 1)
        set(ppm ${folder}/${name}.ppm)
        add_custom_command(OUTPUT ${ppm} COMMAND ${PNGTOPNM} ${png} > ${ppm} DEPENDS ${png} VERBATIM)
        list(APPEND pictures ${ppm})
      else()
        list(APPEND pictures ${png})
      endif()
    endforeach()
  endforeach()
  # Not compressed: the one kind is already, the other one is not on purpose.
  qt_add_resources(${target} ${target}_pictures PREFIX /pictures BASE ${folder} FILES ${pictures}
    OPTIONS --no-compress)
endfunction()
