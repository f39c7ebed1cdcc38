# Tests of the windows run on Qt's offscreen platform.
include(ToolkitEnvironment.cmake)
file(GLOB ui_tests CONFIGURE_DEPENDS ui/*.cpp ui/${system}/*.cpp)
add_executable(morvane_ui_tests ${ui_tests} machine/ChartSketch.cpp)
target_link_libraries(morvane_ui_tests PRIVATE morvane_test_support morvane_ui)
target_precompile_headers(morvane_ui_tests PRIVATE ui/WindowTest.h)
# Its names are taken by the toolkit's.
set_source_files_properties(machine/ChartSketch.cpp PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
add_dependencies(morvane_ui_tests morvane morvane_test_tool)
gtest_discover_tests(morvane_ui_tests DISCOVERY_TIMEOUT 60
                     PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen ${font_property})
# Feedback has to vanish without a trace on a screen of any scale. A property takes one variable
# here, no list; the program does without a screen by itself.
foreach(scale 1.5 2)
  gtest_discover_tests(
    morvane_ui_tests DISCOVERY_TIMEOUT 60
    TEST_FILTER "*EachGesture*"
    TEST_PREFIX scale${scale}.
    PROPERTIES ENVIRONMENT QT_SCALE_FACTOR=${scale} ${font_property})
endforeach()
# A system without fonts makes pages without letters.
add_test(NAME Export.PdfWithoutFonts
         COMMAND morvane --export ${CMAKE_CURRENT_BINARY_DIR}/no-letters.pdf
                 ${CMAKE_SOURCE_DIR}/Examples/Lift/Lift.mrv)
set_tests_properties(Export.PdfWithoutFonts PROPERTIES ENVIRONMENT "${fontless_environment}")

# The core needs no symbol of the toolkit; the same check on the windows' libraries must find some.
set(core_symbols ${CMAKE_SOURCE_DIR}/scripts/core-symbols.sh)
get_property(floors GLOBAL PROPERTY MORVANE_FLOORS)
get_property(qt_floors GLOBAL PROPERTY MORVANE_QT_FLOORS)
list(TRANSFORM floors REPLACE "(.+)" "$<TARGET_FILE:\\1>" OUTPUT_VARIABLE core_files)
list(TRANSFORM qt_floors REPLACE "(.+)" "$<TARGET_FILE:\\1>" OUTPUT_VARIABLE qt_files)
add_test(NAME Architecture.CoreNeedsNoToolkitSymbol COMMAND ${core_symbols} ${core_files})
add_test(NAME Architecture.SymbolCheckSeesTheToolkit COMMAND ${core_symbols} ${qt_files})
set_tests_properties(Architecture.SymbolCheckSeesTheToolkit
                     PROPERTIES PASS_REGULAR_EXPRESSION "needs the toolkit:.*QWidget")

# Each floor links with those alone that it stands on: the linker takes all of it, not just what a
# program would need.
file(CONFIGURE OUTPUT nothing.cpp CONTENT "int main() { return 0; }\n")
foreach(floor ${floors} ${qt_floors})
  add_executable(${floor}_links ${CMAKE_CURRENT_BINARY_DIR}/nothing.cpp)
  target_link_libraries(${floor}_links PRIVATE $<LINK_LIBRARY:WHOLE_ARCHIVE,${floor}>)
  set_target_properties(${floor}_links PROPERTIES RUNTIME_OUTPUT_DIRECTORY
                                                  ${CMAKE_CURRENT_BINARY_DIR}/floors)
endforeach()
