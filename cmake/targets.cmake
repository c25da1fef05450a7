# The few functions that every folder's CMakeLists.txt is written with.

# Where the tests' source and data folders are for the programs that are built: Windows programs
# run under Wine here, which shows this system's root as drive Z.
set(VORNIK_TEST_ROOT "${PROJECT_SOURCE_DIR}")
if(WIN32 AND CMAKE_CROSSCOMPILING)
  set(VORNIK_TEST_ROOT "Z:${PROJECT_SOURCE_DIR}")
  set(VORNIK_TEST_LAUNCHER "${PROJECT_SOURCE_DIR}/tests/windows/wine.sh")
endif()

# vornik_warnings(TARGET): the warning set that every source of ours compiles under.
function(vornik_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Werror)
  # GCC 12 takes the insertion at a string's front for an overlapping copy (its bug 105329).
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
endfunction()

# vornik_objects(NAME SOURCES file... [LINK folder...] [LIBRARIES library...]
# [GATHER platform|module]): one folder's sources. Folders below src/embedded/ are gathered into
# vornik_platform, of which a process has one copy; all others into the module. LINK names the
# folders it stands on, LIBRARIES those of others.
function(vornik_objects name)
  cmake_parse_arguments(arg "" "GATHER" "SOURCES;LINK;LIBRARIES" ${ARGN})
  if(NOT arg_GATHER)
    string(FIND "${CMAKE_CURRENT_SOURCE_DIR}/" "${PROJECT_SOURCE_DIR}/src/embedded/" below)
    if(below EQUAL 0)
      set(arg_GATHER platform)
    else()
      set(arg_GATHER module)
    endif()
  endif()
  if(arg_GATHER STREQUAL platform)
    add_library(${name} OBJECT ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC ${arg_LINK} ${arg_LIBRARIES})
  else()
    # Archives, so that a test program gets exactly the module folders it uses.
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC ${arg_LIBRARIES} vornik_platform)
    vornik_filter_folders(folders ${arg_LINK})
    target_link_libraries(${name} PUBLIC ${folders})
    set_property(GLOBAL APPEND PROPERTY VORNIK_MODULE_LIBRARIES ${arg_LIBRARIES})
  endif()
  if(arg_GATHER STREQUAL companions)
    # In the product they are part of the platform library; a test links the archive beside doubles
    # of what they call.
    vornik_objects(${name}_shared SOURCES ${arg_SOURCES} LINK ${arg_LINK} GATHER platform)
  endif()
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  set_target_properties(${name} PROPERTIES
    POSITION_INDEPENDENT_CODE ON VORNIK_GATHER ${arg_GATHER})
  vornik_warnings(${name})
  set_property(GLOBAL APPEND PROPERTY VORNIK_GATHERED_${arg_GATHER} ${name})
endfunction()

# vornik_gather_platform(): the shared library of all folders below src/embedded/.
function(vornik_gather_platform)
  get_property(folders GLOBAL PROPERTY VORNIK_GATHERED_platform)
  add_library(vornik_platform SHARED ${PROJECT_SOURCE_DIR}/cmake/empty.cpp)
  target_link_libraries(vornik_platform PRIVATE ${folders})
  target_include_directories(vornik_platform PUBLIC ${PROJECT_SOURCE_DIR}/src)
  if(WIN32)
    set_target_properties(vornik_platform PROPERTIES PREFIX "")
    target_link_options(vornik_platform PRIVATE -Wl,--export-all-symbols)
  endif()
endfunction()

# vornik_gather_module(): the module that the host loads, of all the folders beside embedded/.
function(vornik_gather_module)
  get_property(folders GLOBAL PROPERTY VORNIK_GATHERED_module)
  if(NOT folders)
    return()
  endif()
  # The objects and not the archives: much of the module is reached only through tables that the
  # host reads.
  list(TRANSFORM folders REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
  add_library(Vornikplan10 SHARED ${PROJECT_SOURCE_DIR}/cmake/empty.cpp ${objects} ${ARGN})
  target_include_directories(Vornikplan10 PRIVATE ${PROJECT_SOURCE_DIR}/src)
  get_property(libraries GLOBAL PROPERTY VORNIK_MODULE_LIBRARIES)
  target_link_libraries(Vornikplan10 PRIVATE vornik_platform ${libraries})
  if(WIN32)
    set_target_properties(Vornikplan10 PROPERTIES PREFIX "" SUFFIX ".arx")
  endif()
endfunction()

# vornik_filter_folders(OUT target...): the targets without the folders of vornik_platform.
function(vornik_filter_folders out)
  set(result)
  foreach(target IN LISTS ARGN)
    set(gather)
    if(TARGET ${target})
      get_property(gather TARGET ${target} PROPERTY VORNIK_GATHER)
    endif()
    if(NOT gather STREQUAL platform)
      list(APPEND result ${target})
    endif()
  endforeach()
  set(${out} ${result} PARENT_SCOPE)
endfunction()

# vornik_link(TARGET target...): links a program with the given folders or libraries and with
# vornik_platform. A folder below src/embedded/ is already in vornik_platform and isn't linked a
# second time, so that a process has one copy of its state.
function(vornik_link name)
  vornik_filter_folders(others ${ARGN})
  target_link_libraries(${name} PRIVATE ${others} vornik_platform)
endfunction()

# vornik_program(NAME SOURCES file... [LINK target...]): a program of ours in bin/.
function(vornik_program name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  vornik_link(${name} ${arg_LINK})
  vornik_warnings(${name})
endfunction()

# vornik_test_program(NAME SOURCES file... [LINK target...]): a GoogleTest program that CTest
# doesn't run by itself.
function(vornik_test_program name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  if(WIN32)
    list(APPEND arg_SOURCES ${PROJECT_SOURCE_DIR}/tests/windows/crash_report.cpp)
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE
    VORNIK_TEST_DATA="${VORNIK_TEST_ROOT}/tests/data" VORNIK_SOURCE_DIR="${VORNIK_TEST_ROOT}")
  vornik_link(${name} ${arg_LINK} vornik_gtest_main)
  vornik_warnings(${name})
endfunction()

# vornik_test(NAME SOURCES file... [LINK target...] [SMOKE]): a GoogleTest program that CTest runs
# as one test, natively or under Wine. SMOKE puts it into the short set that also runs optimised and
# that the target `smoke` builds.
add_custom_target(smoke)
function(vornik_test name)
  cmake_parse_arguments(arg "SMOKE" "" "SOURCES;LINK" ${ARGN})
  vornik_test_program(${name} SOURCES ${arg_SOURCES} LINK ${arg_LINK})
  add_test(NAME ${name} COMMAND ${VORNIK_TEST_LAUNCHER} $<TARGET_FILE:${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT 600)
  if(arg_SMOKE)
    set_tests_properties(${name} PROPERTIES LABELS smoke)
    add_dependencies(smoke ${name})
  endif()
endfunction()

# vornik_fuzz(NAME SOURCES file... [LINK target...] [RUNS n]): a libFuzzer target, and a test that runs
# it n or VORNIK_FUZZ_RUNS times from fuzz/corpus/NAME. What it finds is kept in fuzz-findings/.
set(VORNIK_FUZZ_RUNS 20000 CACHE STRING "Runs of each fuzz target in a test")
function(vornik_fuzz name)
  cmake_parse_arguments(arg "" "RUNS" "SOURCES;LINK" ${ARGN})
  if(NOT arg_RUNS)
    set(arg_RUNS ${VORNIK_FUZZ_RUNS})
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src)
  vornik_link(${name} ${arg_LINK})
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  vornik_warnings(${name})
  set(found ${PROJECT_BINARY_DIR}/fuzz-corpus/${name})
  set(findings ${PROJECT_BINARY_DIR}/fuzz-findings)
  file(MAKE_DIRECTORY ${found} ${findings})
  add_test(NAME ${name} COMMAND ${name} -runs=${arg_RUNS} -seed=1 -timeout=10
           -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix=${findings}/${name}-
           ${found} ${PROJECT_SOURCE_DIR}/fuzz/corpus/${name})
  set_tests_properties(${name} PROPERTIES LABELS fuzz TIMEOUT 600)
endfunction()
