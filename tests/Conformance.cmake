# Made-up charts do the same in every language, and in an SCXML engine that knows nothing of them;
# scripts/conformance.sh compares more.
find_package(Qt6 REQUIRED COMPONENTS Scxml)
add_executable(morvane_scxml_runner generators/rig/qt/ScxmlRunner.cpp)
target_link_libraries(morvane_scxml_runner PRIVATE Qt6::Scxml)
add_executable(morvane_conformance generators/rig/Conformance.cpp generators/rig/RandomChart.cpp
                                   generators/rig/RigLanguage.cpp generators/rig/Teller.cpp)
target_link_libraries(morvane_conformance PRIVATE morvane_generators)
add_dependencies(morvane_conformance morvane_scxml_runner)
set_target_properties(morvane_conformance morvane_scxml_runner
                      PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set(designer $<TARGET_FILE:morvane>)
if(MORVANE_SANITIZE) # A start of the designer takes its time then.
  set(designer)
endif()
add_test(NAME Generators.SameTracesInAllLanguages
         COMMAND morvane_conformance 60 ${CMAKE_CURRENT_BINARY_DIR}/conformance 1
                 $<TARGET_FILE:morvane_scxml_runner> ${designer})
set_tests_properties(Generators.SameTracesInAllLanguages PROPERTIES TIMEOUT 900)
