# What a folder for Windows has beside the program: its README, and the licences and the origin of
# what is linked in, which scripts/build-windows has put beside the libraries.
set(QUERNA_LIBRARY_SOURCES "")
file(GLOB sources CONFIGURE_DEPENDS ${QUERNA_WINDOWS_LIBRARIES}/licences/*.source)
foreach(file ${sources})
    file(STRINGS ${file} line LIMIT_COUNT 1)
    string(APPEND QUERNA_LIBRARY_SOURCES "  ${line}\n")
endforeach()
configure_file(packaging/windows/README.txt.in ${CMAKE_BINARY_DIR}/README.txt @ONLY NEWLINE_STYLE WIN32)
install(FILES ${CMAKE_BINARY_DIR}/README.txt DESTINATION .)
install(FILES LICENSE DESTINATION . RENAME LICENSE.txt)
if(QUERNA_WINDOWS_LIBRARIES)
    install(DIRECTORY ${QUERNA_WINDOWS_LIBRARIES}/licences DESTINATION . PATTERN "*.source" EXCLUDE)
endif()
