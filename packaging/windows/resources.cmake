# Icons, manifest and version inside the programs.
enable_language(RC)
find_program(ICOTOOL icotool REQUIRED)

# Programs of the build run under Wine, the toolkit with the fonts of this machine.
set(run_tool ${CMAKE_COMMAND} -E env QT_QPA_FONTDIR=/usr/share/fonts/truetype/dejavu
             ${CMAKE_CROSSCOMPILING_EMULATOR})

# add_windows_icon(OUTPUT SVG): an icon in the sizes that the shell asks for
function(add_windows_icon output svg)
  set(pictures)
  set(draw)
  foreach(size 16 20 24 32 40 48 64 128 256)
    set(picture ${output}.${size}.png)
    list(APPEND pictures ${picture})
    list(APPEND draw COMMAND ${run_tool} $<TARGET_FILE:morvane_render> ${svg} ${picture} ${size})
  endforeach()
  add_custom_command(OUTPUT ${output} ${draw} COMMAND ${ICOTOOL} -c -o ${output} ${pictures}
                     DEPENDS morvane_render ${svg} VERBATIM)
endfunction()
set(icon ${CMAKE_BINARY_DIR}/morvane.ico)
set(chart_icon ${CMAKE_BINARY_DIR}/chart.ico)
set(manifest ${CMAKE_SOURCE_DIR}/packaging/windows/morvane.manifest)
add_windows_icon(${icon} ${CMAKE_SOURCE_DIR}/resources/icons/morvane.svg)
add_windows_icon(${chart_icon} ${CMAKE_SOURCE_DIR}/packaging/application-x-morvane.svg)

# add_windows_resources(TARGET NAME DESCRIPTION)
function(add_windows_resources target name description)
  set(script ${CMAKE_BINARY_DIR}/${name}.rc)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/morvane.rc.in ${script} @ONLY)
  target_sources(${target} PRIVATE ${script})
  set_source_files_properties(${script} PROPERTIES OBJECT_DEPENDS
                                                   "${icon};${chart_icon};${manifest}")
endfunction()
