# The few functions every folder's CMakeLists.txt is written with.

# vornik_warnings(TARGET): the warning set that every source of ours compiles under.
function(vornik_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Werror)
endfunction()

# vornik_objects(NAME SOURCES file... [LINK target...]): one folder's sources as objects. Folders of
# embedded/ are gathered into the platform library, module folders into the module.
function(vornik_objects name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} OBJECT ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${arg_LINK})
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  vornik_warnings(${name})
endfunction()

# vornik_test(NAME SOURCES file... [LINK target...]): one GoogleTest program, run by CTest as one
# test per program (natively, or through the Wine harness for the Windows build).
function(vornik_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE
    VORNIK_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data" VORNIK_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${arg_LINK} vornik_gtest_main)
  vornik_warnings(${name})
  add_test(NAME ${name} COMMAND ${VORNIK_TEST_LAUNCHER} $<TARGET_FILE:${name}>)
endfunction()
