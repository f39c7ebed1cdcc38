# morvane_generate(TARGET MODEL LANGUAGE [DEBUG] [FOLDER folder]): turns the state chart MODEL into
# code while TARGET is built, and again whenever the chart changes.
#
# LANGUAGE is C, CPP, CS, JAVA or XML. The code of C and CPP becomes part of TARGET, a library or a
# program, which can include its header. For the other languages TARGET is made, and writes the
# files. They go into FOLDER, by default a folder of the target's own in the build folder. With
# DEBUG the code refers to the lines of the chart and prints what happens.
get_filename_component(Morvane_TOOLS "${CMAKE_CURRENT_LIST_DIR}/../../morvane/bin" ABSOLUTE)

function(morvane_generate target model language)
  cmake_parse_arguments(PARSE_ARGV 3 arg "DEBUG" "FOLDER" "")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "morvane_generate: what is \"${arg_UNPARSED_ARGUMENTS}\"?")
  endif()
  string(TOLOWER "${language}" name)
  set(tool "${Morvane_TOOLS}/mrv2${name}.exe")
  if(NOT name MATCHES "^(c|cpp|cs|java|xml)$")
    message(FATAL_ERROR "morvane_generate: \"${language}\" is none of C, CPP, CS, JAVA, XML")
  endif()
  get_filename_component(model "${model}" ABSOLUTE)
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}_chart")
  if(arg_FOLDER)
    get_filename_component(folder "${arg_FOLDER}" ABSOLUTE BASE_DIR "${CMAKE_CURRENT_BINARY_DIR}")
  endif()
  set(command "${tool}" -o "${folder}")
  if(arg_DEBUG AND NOT name STREQUAL "xml")
    list(INSERT command 1 -g)
  endif()

  # The chart says what the files are called: the first run tells.
  string(MD5 key "${model}")
  set(names "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${target}_${key}_${name}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${model}")
  file(REMOVE_RECURSE "${names}")
  file(MAKE_DIRECTORY "${names}" "${folder}")
  execute_process(COMMAND "${tool}" -o "${names}" "${model}" RESULT_VARIABLE failed
                  ERROR_VARIABLE messages)
  if(failed)
    message(FATAL_ERROR "${messages}")
  endif()
  file(GLOB files RELATIVE "${names}" "${names}/*")
  list(TRANSFORM files PREPEND "${folder}/")

  set(stamp "${names}.stamp")
  add_custom_command(
    OUTPUT "${stamp}"
    BYPRODUCTS ${files}
    COMMAND ${command} "${model}"
    COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
    DEPENDS "${model}" "${tool}"
    COMMENT "Generating code of ${model}"
    VERBATIM)
  if(name MATCHES "^(c|cpp)$")
    target_sources("${target}" PRIVATE ${files} "${stamp}")
    target_include_directories("${target}" PUBLIC "$<BUILD_INTERFACE:${folder}>")
  else()
    add_custom_target("${target}" ALL DEPENDS "${stamp}")
  endif()
endfunction()
