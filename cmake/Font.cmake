# ATX_A.ttf is DejaVu Sans Mono from Debian's fonts-dejavu-core. It is never
# committed; the build copies the installed system font into the data directory.
find_program(FC_MATCH fc-match)
set(PROSPECTOR_SYSTEM_FONT "")
if(FC_MATCH)
  execute_process(COMMAND ${FC_MATCH} -f "%{file}" "DejaVu Sans Mono:style=Book"
    OUTPUT_VARIABLE _font OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(_font MATCHES "DejaVuSansMono\\.ttf$" AND EXISTS "${_font}")
    set(PROSPECTOR_SYSTEM_FONT "${_font}")
  endif()
endif()
if(NOT PROSPECTOR_SYSTEM_FONT AND EXISTS /usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf)
  set(PROSPECTOR_SYSTEM_FONT /usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf)
endif()
if(PROSPECTOR_SYSTEM_FONT)
  message(STATUS "Game font ATX_A.ttf from ${PROSPECTOR_SYSTEM_FONT}")
  add_custom_command(OUTPUT ${PROSPECTOR_DATA_DIR}/ATX_A.ttf
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROSPECTOR_DATA_DIR}
    COMMAND ${CMAKE_COMMAND} -E copy ${PROSPECTOR_SYSTEM_FONT} ${PROSPECTOR_DATA_DIR}/ATX_A.ttf
    DEPENDS ${PROSPECTOR_SYSTEM_FONT}
    COMMENT "Copying DejaVu Sans Mono to ATX_A.ttf")
  add_custom_target(data_font DEPENDS ${PROSPECTOR_DATA_DIR}/ATX_A.ttf)
else()
  message(WARNING "DejaVu Sans Mono not found: run scripts/install-deps, then rebuild. "
                  "The game cannot draw text without ATX_A.ttf.")
  add_custom_target(data_font)
endif()
