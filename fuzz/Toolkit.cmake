# Those that need the toolkit, without a screen
add_library(morvane_fuzz_toolkit STATIC qt/Application.cpp)
target_link_libraries(morvane_fuzz_toolkit PUBLIC morvane_fuzz_support morvane_ui)
add_fuzz_target(picture qt/Picture.cpp morvane_fuzz_toolkit)
if(NOT WIN32) # where the settings are no file
  add_fuzz_target(settings qt/SettingsFile.cpp morvane_fuzz_toolkit)
endif()
if(NOT MORVANE_FUZZ AND NOT WIN32)
  # The toolkit asks for as much memory as a damaged value says, and does without.
  set_property(TEST Fuzz.settings APPEND PROPERTY ENVIRONMENT
                                                  ASAN_OPTIONS=allocator_may_return_null=1:max_allocation_size_mb=2000)
endif()
add_fuzz_target(splash qt/Splash.cpp morvane_fuzz_toolkit)
add_fuzz_target(events qt/Events.cpp morvane_fuzz_toolkit)
target_sources(fuzz_events PRIVATE qt/AnyHand.cpp)

# Long use: memory, files and threads go back to where they were. It takes the C library's own
# account of what is in use.
if(NOT MORVANE_FUZZ AND NOT WIN32)
  add_executable(morvane_soak qt/Soak.cpp qt/Events.cpp qt/AnyHand.cpp)
  target_link_libraries(morvane_soak PRIVATE morvane_fuzz_toolkit)
  set_target_properties(morvane_soak PROPERTIES RUNTIME_OUTPUT_DIRECTORY
                                                ${CMAKE_CURRENT_BINARY_DIR})
  add_test(NAME Soak.LongUseLeavesNothingBehind COMMAND morvane_soak)
  set_tests_properties(Soak.LongUseLeavesNothingBehind PROPERTIES ENVIRONMENT
                                                                  "QT_QPA_PLATFORM=offscreen")
endif()

# Damaged charts in one window with real message boxes: scripts/damaged-charts.sh.
if(NOT MORVANE_FUZZ)
  add_executable(morvane_damaged qt/Damaged.cpp qt/DamagedCharts.cpp Mutation.cpp)
  target_link_libraries(morvane_damaged PRIVATE morvane_fuzz_toolkit)
  set_target_properties(morvane_damaged PROPERTIES RUNTIME_OUTPUT_DIRECTORY
                                                   ${CMAKE_CURRENT_BINARY_DIR})
  add_test(NAME Fuzz.damaged COMMAND morvane_damaged ${CMAKE_SOURCE_DIR}/Examples 60)
  set_tests_properties(Fuzz.damaged PROPERTIES ENVIRONMENT "${toolkit_environment}")
endif()
