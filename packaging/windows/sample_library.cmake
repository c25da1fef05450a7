# Makes the sample library beside the installed program. One that is there may have been worked with,
# and stays.
set(folder "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
if(EXISTS "${folder}/Library")
  message(STATUS "Kept: ${folder}/Library")
  return()
endif()
message(STATUS "Making: ${folder}/Library")
execute_process(COMMAND @launcher@ "${folder}/vornik.exe" sample Library
                WORKING_DIRECTORY "${folder}"
                OUTPUT_QUIET ERROR_VARIABLE problem RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "The sample library can't be made (${status}):\n${problem}")
endif()
# Where it was made is nobody's business: the program notes anew where it is when it is first used.
file(GLOB notes "${folder}/Library/User/*" "${folder}/Library/Datcom/zhllib/*.bak")
file(REMOVE ${notes})
