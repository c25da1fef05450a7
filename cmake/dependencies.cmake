# Packages of others. GoogleTest is built from Debian's source package, so that one version serves
# both the native and the Windows build.
set(VORNIK_GTEST_SOURCE /usr/src/googletest CACHE PATH "GoogleTest source folder")
if(BUILD_TESTING)
  set(INSTALL_GTEST OFF)
  set(BUILD_GMOCK OFF)
  set(BUILD_SHARED_LIBS OFF)
  add_subdirectory(${VORNIK_GTEST_SOURCE} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
  add_library(vornik_gtest_main INTERFACE)
  target_link_libraries(vornik_gtest_main INTERFACE gtest_main gtest)
endif()
find_package(ZLIB REQUIRED)
if(NOT WIN32)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(CAIRO REQUIRED IMPORTED_TARGET cairo)
endif()

# The compiler's runtime libraries stand beside the programs: one heap and one copy of every type
# in the process.
if(WIN32)
  find_program(VORNIK_STRIP NAMES ${CMAKE_STRIP} x86_64-w64-mingw32-strip REQUIRED)
  foreach(library libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll zlib1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
                    OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(IS_ABSOLUTE "${path}" AND NOT EXISTS ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${library})
      file(MAKE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
      execute_process(COMMAND ${VORNIK_STRIP} -o ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${library}
                              ${path} COMMAND_ERROR_IS_FATAL ANY)
    endif()
  endforeach()
endif()
