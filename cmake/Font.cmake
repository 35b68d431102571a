# ATX_A.ttf is Oxygen Mono from Debian's fonts-oxygen. It is never committed;
# the build copies the installed system font into the data directory.
#
# Why this face: the layouts put text in fixed places made for a monospaced
# font 7 pixels wide at 12 points (the chart's scan lines, the status window's
# columns), and some places are tight in height: the message strip steps its
# lines 12-point heights apart in 80 pixels, the history windows hold 34 lines
# in 480, and the status scale sits 10 pixels above the panel's bottom. Oxygen
# Mono draws every glyph exactly 6 pixels wide at 10 points and 7 at 12, in
# lines 11 and 13 pixels high (10 above the baseline at 12 points), and its
# strokes reach full brightness. DejaVu Sans Mono, 15 pixels high at 12 points,
# cut the history windows' top line and the scale's labels.
# tests/displays/text_fit_test.cpp checks these places against the built font.
set(_font_file OxygenMono-Regular.ttf)
find_program(FC_MATCH fc-match)
set(PROSPECTOR_SYSTEM_FONT "")
if(FC_MATCH)
  execute_process(COMMAND ${FC_MATCH} -f "%{file}" "Oxygen Mono:style=Regular"
    OUTPUT_VARIABLE _font OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  get_filename_component(_name "${_font}" NAME)
  if(_name STREQUAL _font_file AND EXISTS "${_font}")
    set(PROSPECTOR_SYSTEM_FONT "${_font}")
  endif()
endif()
if(NOT PROSPECTOR_SYSTEM_FONT AND EXISTS /usr/share/fonts/truetype/oxygen/${_font_file})
  set(PROSPECTOR_SYSTEM_FONT /usr/share/fonts/truetype/oxygen/${_font_file})
endif()
if(PROSPECTOR_SYSTEM_FONT)
  message(STATUS "Game font ATX_A.ttf from ${PROSPECTOR_SYSTEM_FONT}")
  add_custom_command(OUTPUT ${PROSPECTOR_DATA_DIR}/ATX_A.ttf
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROSPECTOR_DATA_DIR}
    COMMAND ${CMAKE_COMMAND} -E copy ${PROSPECTOR_SYSTEM_FONT} ${PROSPECTOR_DATA_DIR}/ATX_A.ttf
    DEPENDS ${PROSPECTOR_SYSTEM_FONT}
    COMMENT "Copying Oxygen Mono to ATX_A.ttf")
  add_custom_target(data_font DEPENDS ${PROSPECTOR_DATA_DIR}/ATX_A.ttf)
else()
  message(WARNING "Oxygen Mono not found: run scripts/install-deps, then rebuild. "
                  "The game cannot draw text without ATX_A.ttf.")
  add_custom_target(data_font)
endif()
