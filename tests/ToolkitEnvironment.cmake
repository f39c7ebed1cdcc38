# toolkit_environment: what tests of the windows find around them: no screen, and fonts. On Windows
# the toolkit takes those of one folder then, which is made here of what the tests need; elsewhere
# it asks the system. font_property: the same fonts as a property beside ENVIRONMENT.
set(toolkit_environment QT_QPA_PLATFORM=offscreen)
set(no_fonts ${CMAKE_BINARY_DIR}/no-fonts)
file(MAKE_DIRECTORY ${no_fonts})
file(CONFIGURE OUTPUT ${no_fonts}/fonts.conf
     CONTENT [[<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig/>]])
set(fontless_environment QT_QPA_PLATFORM=offscreen FONTCONFIG_FILE=${no_fonts}/fonts.conf)

set(font_property)
if(WIN32 AND CMAKE_CROSSCOMPILING)
  # As scripts/setup.sh installs them: few of those that there are, since each start reads them all
  set(font_folder ${CMAKE_BINARY_DIR}/fonts)
  file(MAKE_DIRECTORY ${font_folder})
  foreach(font dejavu/DejaVuSans.ttf dejavu/DejaVuSans-Bold.ttf dejavu/DejaVuSansMono.ttf
               dejavu/DejaVuSansMono-Bold.ttf dejavu/DejaVuSerif.ttf dejavu/DejaVuSerif-Bold.ttf
               noto/NotoSansThai-Regular.ttf noto/NotoSansThai-Bold.ttf
               noto/NotoSansDevanagari-Regular.ttf noto/NotoSansDevanagari-Bold.ttf
               droid/DroidSansFallbackFull.ttf)
    if(EXISTS /usr/share/fonts/truetype/${font})
      file(COPY /usr/share/fonts/truetype/${font} DESTINATION ${font_folder})
    else()
      message(WARNING "The font ${font} is missing: scripts/setup.sh installs it")
    endif()
  endforeach()
  list(APPEND toolkit_environment QT_QPA_FONTDIR=Z:${font_folder})
  set(font_property ENVIRONMENT_MODIFICATION QT_QPA_FONTDIR=set:Z:${font_folder})
  list(APPEND fontless_environment QT_QPA_FONTDIR=Z:${no_fonts})
endif()
