# The native install: the program, its libraries in a folder of their own beside it, the manual. Every
# path is relative, so that the whole can be moved; the same files make the Debian package `vornik`.
set(libraries lib/vornikplan10)
set(documentation share/doc/vornik)

set_target_properties(vornik PROPERTIES INSTALL_RPATH "$ORIGIN/../${libraries}")
set_target_properties(vornik_platform Vornikplan10 PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS vornik RUNTIME DESTINATION bin)
install(TARGETS vornik_platform Vornikplan10 LIBRARY DESTINATION ${libraries}
        PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)  # loaded, not run

# vornik_compressed(FILE NAME DESTINATION): manuals and change logs are compressed where Debian looks
# for them, always to the same bytes.
function(vornik_compressed file name destination)
  set(compressed ${CMAKE_CURRENT_BINARY_DIR}/${name}.gz)
  configure_file(${file} ${CMAKE_CURRENT_BINARY_DIR}/${name} @ONLY)
  execute_process(COMMAND gzip -9nc ${CMAKE_CURRENT_BINARY_DIR}/${name}
                  OUTPUT_FILE ${compressed} COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${compressed} DESTINATION ${destination})
endfunction()
vornik_compressed(${CMAKE_CURRENT_SOURCE_DIR}/debian/vornik.1 vornik.1 share/man/man1)
vornik_compressed(${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog changelog.Debian ${documentation})
vornik_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog ${documentation})

# The licence of the Chinese glyphs is quoted from its own file: a paragraph of this format is
# indented, its empty lines are dots.
file(READ ${font_licence} font_licence_text)
string(STRIP "${font_licence_text}" font_licence_text)
string(REGEX REPLACE "[ \r]*\n" "\n " font_licence_text " ${font_licence_text}")
string(REGEX REPLACE "\n \n" "\n .\n" font_licence_text "${font_licence_text}")
configure_file(${CMAKE_CURRENT_SOURCE_DIR}/debian/copyright.in
               ${CMAKE_CURRENT_BINARY_DIR}/copyright @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/copyright ${font_licence}
        DESTINATION ${documentation})
foreach(name IN LISTS documents)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/${name}.md DESTINATION ${documentation}/docs)
endforeach()
foreach(picture IN LISTS pictures)
  cmake_path(GET picture PARENT_PATH folder)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/${picture}
          DESTINATION ${documentation}/docs/${folder})
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/samples/main_circuits.scr
        DESTINATION ${documentation}/examples)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_PACKAGE_NAME vornik)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER
    "Vornikplan10 contributors <contributors@vornikplan10.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
