# ATX_A.ttf is GNU FreeMono from Debian's fonts-freefont-ttf. It is never
# committed; the build copies the installed system font into the data directory.
#
# Why this face: the layouts put text in fixed places made for a monospaced
# font 7 pixels wide at 12 points (the chart's scan lines, the status window),
# and some places are tight in height: the message strip steps its seven lines
# 12-point heights apart in 80 pixels, and the status scale sits 10 pixels above
# the panel's bottom. FreeMono's lines are 11 pixels high at 10 points and 13 at
# 12 (10 above the baseline), so every line of the strip and of the history
# windows shows whole and the scale's labels are not cut; broader faces such as
# DejaVu Sans Mono cut both (tests/displays/text_fit_test.cpp checks the places).
set(_font_file FreeMono.ttf)
find_program(FC_MATCH fc-match)
set(PROSPECTOR_SYSTEM_FONT "")
if(FC_MATCH)
  execute_process(COMMAND ${FC_MATCH} -f "%{file}" "FreeMono:style=Regular"
    OUTPUT_VARIABLE _font OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  get_filename_component(_name "${_font}" NAME)
  if(_name STREQUAL _font_file AND EXISTS "${_font}")
    set(PROSPECTOR_SYSTEM_FONT "${_font}")
  endif()
endif()
if(NOT PROSPECTOR_SYSTEM_FONT AND EXISTS /usr/share/fonts/truetype/freefont/${_font_file})
  set(PROSPECTOR_SYSTEM_FONT /usr/share/fonts/truetype/freefont/${_font_file})
endif()
if(PROSPECTOR_SYSTEM_FONT)
  message(STATUS "Game font ATX_A.ttf from ${PROSPECTOR_SYSTEM_FONT}")
  add_custom_command(OUTPUT ${PROSPECTOR_DATA_DIR}/ATX_A.ttf
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROSPECTOR_DATA_DIR}
    COMMAND ${CMAKE_COMMAND} -E copy ${PROSPECTOR_SYSTEM_FONT} ${PROSPECTOR_DATA_DIR}/ATX_A.ttf
    DEPENDS ${PROSPECTOR_SYSTEM_FONT}
    COMMENT "Copying FreeMono to ATX_A.ttf")
  add_custom_target(data_font DEPENDS ${PROSPECTOR_DATA_DIR}/ATX_A.ttf)
else()
  message(WARNING "FreeMono not found: run scripts/install-deps, then rebuild. "
                  "The game cannot draw text without ATX_A.ttf.")
  add_custom_target(data_font)
endif()
