# The Windows install: one flat folder, since a program finds its libraries and the module beside
# itself. It needs nothing else on the machine; the compiler's runtime and zlib are in it. The same
# files make the zip and the installer.
set(programs vornik)
if(TARGET drafting)
  list(APPEND programs drafting)
endif()
install(TARGETS ${programs} vornik_platform Vornikplan10 RUNTIME DESTINATION .)
foreach(library libgcc_s_seh-1 libstdc++-6 libwinpthread-1 zlib1)
  install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${library}.dll DESTINATION .)
endforeach()

# The licences of all that is in the folder, those of others as the machine that builds has them.
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION licences RENAME Vornikplan10.txt)
install(FILES ${glyphs}/README.md DESTINATION licences RENAME fonts.txt)
install(FILES ${font_licence} /usr/share/common-licenses/GPL-3 DESTINATION licences)
install(FILES /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright
        DESTINATION licences RENAME compiler-runtime.txt)
install(FILES /usr/share/doc/mingw-w64-x86-64-dev/copyright
        DESTINATION licences RENAME mingw-w64.txt)
install(FILES /usr/share/doc/libz-mingw-w64/copyright DESTINATION licences RENAME zlib.txt)

# Windows shows web pages out of the box, Markdown not. Without the converter the texts go as they
# are.
find_program(VORNIK_MARKDOWN cmark-gfm)
foreach(name IN LISTS documents)
  set(document ${PROJECT_SOURCE_DIR}/docs/${name}.md)
  if(NOT VORNIK_MARKDOWN)
    install(FILES ${document} DESTINATION docs)
    continue()
  endif()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${document})
  execute_process(COMMAND ${VORNIK_MARKDOWN} --extension table ${document}
                  OUTPUT_VARIABLE body COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "(href=\"[^\"/:]*)\\.md" "\\1.html" body "${body}")
  # What is for who changes the program isn't there to be linked to.
  string(REGEX MATCHALL "href=\"[^\"/:#]*\\.html" links "${body}")
  foreach(link IN LISTS links)
    string(REGEX REPLACE "href=\"(.*)\\.html" "\\1" target "${link}")
    if(NOT target IN_LIST documents)
      string(REGEX REPLACE "<a href=\"${target}\\.html[^\"]*\">([^<]*)</a>" "\\1" body "${body}")
    endif()
  endforeach()
  configure_file(windows/document.html ${CMAKE_CURRENT_BINARY_DIR}/${name}.html @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.html DESTINATION docs)
endforeach()
foreach(picture IN LISTS pictures)
  cmake_path(GET picture PARENT_PATH folder)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/${picture} DESTINATION docs/${folder})
endforeach()
configure_file(windows/README.txt ${CMAKE_CURRENT_BINARY_DIR}/README.txt @ONLY
               NEWLINE_STYLE CRLF)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/README.txt DESTINATION .)

# The sample library is made by the program that has just been put there.
set(launcher)
if(VORNIK_TEST_LAUNCHER)
  set(launcher "\"${VORNIK_TEST_LAUNCHER}\"")
endif()
configure_file(windows/sample_library.cmake ${CMAKE_CURRENT_BINARY_DIR}/sample_library.cmake @ONLY)
install(SCRIPT ${CMAKE_CURRENT_BINARY_DIR}/sample_library.cmake)

set(CPACK_GENERATOR ZIP NSIS)
set(CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}-windows-x64)
# The installer's script is NSIS.template.in beside this file.
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_SOURCE_DIR}/windows)
if(TARGET drafting)
  set(CPACK_NSIS_DEFINES "!define DESKTOP drafting.exe")
endif()
