# cmake --install build/release --prefix <folder> makes <folder> the program's own: the program with
# its files beside it and nothing anywhere else. The history is written into it, so it has to belong
# to the user. On Unix add-to-menu and uninstall go along and act on the folder they lie in.

install(TARGETS Querna DESTINATION .)
install(FILES ${QUERNA_APP_DIR}/T-SQL.bcp ${QUERNA_APP_DIR}/dummy.sql DESTINATION .)
if(WIN32)
    include(cmake/installWindows.cmake)
else()
    install(FILES resources/icons/querna.svg packaging/README.md LICENSE DESTINATION .)
    install(PROGRAMS packaging/add-to-menu packaging/uninstall DESTINATION .)
endif()

# cpack --config build/release/CPackConfig.cmake packs that folder.
set(CPACK_PACKAGE_VENDOR "Querna")
string(TOLOWER "${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}" system)
if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(system windows)
    set(CPACK_STRIP_FILES ON)
else()
    set(CPACK_GENERATOR TGZ)
endif()
set(CPACK_PACKAGE_FILE_NAME "querna-${PROJECT_VERSION}-${system}")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
include(CPack)
