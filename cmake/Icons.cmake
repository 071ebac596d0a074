# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
# SPDX-License-Identifier: MIT
# The application's icon from its one drawing: BRINDLE_ICON (SVG), brindle2-SIZE.png for every size of
# BRINDLE_ICON_SIZES, and brindle2.ico, all in BRINDLE_ICON_FOLDER, by the target brindle_icons.

find_program(ICOTOOL icotool REQUIRED)

set(BRINDLE_ICON ${CMAKE_SOURCE_DIR}/src/base/input/pictures/application.svg)
set(BRINDLE_ICON_FOLDER ${CMAKE_BINARY_DIR}/icons)
set(BRINDLE_ICON_SIZES 16 22 24 32 48 64 128 256 512)
file(MAKE_DIRECTORY ${BRINDLE_ICON_FOLDER})

foreach(size IN LISTS BRINDLE_ICON_SIZES)
  set(png ${BRINDLE_ICON_FOLDER}/brindle2-${size}.png)
  add_custom_command(OUTPUT ${png}
    COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${png} ${BRINDLE_ICON}
    DEPENDS ${BRINDLE_ICON} VERBATIM)
  list(APPEND icons_made ${png})
endforeach()

# The icon holds the largest size as PNG, the others as the bitmaps that every Windows reads.
set(ico ${BRINDLE_ICON_FOLDER}/brindle2.ico)
set(bitmaps 16 24 32 48 64)
list(TRANSFORM bitmaps PREPEND ${BRINDLE_ICON_FOLDER}/brindle2-)
list(TRANSFORM bitmaps APPEND .png)
add_custom_command(OUTPUT ${ico}
  COMMAND ${ICOTOOL} --create --output ${ico} ${bitmaps} --raw ${BRINDLE_ICON_FOLDER}/brindle2-256.png
  DEPENDS ${icons_made} VERBATIM)
add_custom_target(brindle_icons ALL DEPENDS ${icons_made} ${ico})
