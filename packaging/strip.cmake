# Runs on what CPack is about to pack: takes off what the compilers noted of themselves.
file(GLOB programs ${CPACK_TEMPORARY_DIRECTORY}/usr/lib/morvane/bin/*.exe
     ${CPACK_TEMPORARY_DIRECTORY}/usr/lib/morvane/bin/morvane
     ${CPACK_TEMPORARY_DIRECTORY}/usr/lib/morvane/bin/morvane_script)
foreach(program ${programs})
  execute_process(COMMAND strip --remove-section=.comment --remove-section=.note ${program}
                          COMMAND_ERROR_IS_FATAL ANY)
endforeach()
