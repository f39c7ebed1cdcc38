# Scripts of a shell, calls that the linker sends elsewhere, and processes that are forked
# The examples do what their README promises, and the tutorial leads to a program that runs.
add_test(NAME Examples.RunInEveryLanguage
         COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/generators/examples.sh ${CMAKE_SOURCE_DIR}/Examples
                 ${CMAKE_BINARY_DIR}/bin)
add_test(NAME Examples.ThoseOfTheTutorial
         COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/generators/tutorial.sh ${CMAKE_SOURCE_DIR}/docs
                 ${CMAKE_BINARY_DIR}/bin)

# What happens when files and memory fail: the linker sends their calls to the test first.
file(GLOB fault_tests CONFIGURE_DEPENDS faults/*.cpp)
add_executable(morvane_fault_tests ${fault_tests})
target_link_libraries(morvane_fault_tests PRIVATE morvane_test_support GTest::gtest_main)
foreach(function open fstat lstat readlink read write posix_fallocate ftruncate fsync fchown fchmod
                 close rename unlink)
  target_link_options(morvane_fault_tests PRIVATE -Wl,--wrap=${function})
endforeach()
gtest_discover_tests(morvane_fault_tests DISCOVERY_TIMEOUT 60)

# What is left when the program is killed at any moment; scripts/kills.sh does it more often.
add_executable(morvane_save_kills kills/SaveKills.cpp ${CMAKE_SOURCE_DIR}/bench/ChartGenerator.cpp)
target_link_libraries(morvane_save_kills PRIVATE morvane_test_support)
add_test(NAME Kills.DuringSaves COMMAND morvane_save_kills 20)

if(MORVANE_DESIGNER)
  add_executable(morvane_draw_kills kills/DrawKills.cpp)
  target_link_libraries(morvane_draw_kills PRIVATE morvane_test_support morvane_ui)
  if(NOT MORVANE_SANITIZE) # which is too slow for a bar in seconds
    add_test(NAME Kills.WhileDrawing COMMAND morvane_draw_kills 3)
    set_tests_properties(Kills.WhileDrawing PROPERTIES RUN_SERIAL TRUE)
  endif()
endif()
