# What Windows is told of a program: of every one that links the core, tests too, its manifest; of
# Querna also its icon and version. And what mends the compiler's way of ending threads in them all.
enable_language(RC)
set(manifest ${PROJECT_SOURCE_DIR}/packaging/windows/querna.manifest)
if(NOT MSVC) # whose linker takes the manifest itself
    file(CONFIGURE OUTPUT manifest.rc CONTENT "1 24 \"${manifest}\"\n")
    set(manifest ${CMAKE_CURRENT_BINARY_DIR}/manifest.rc)
endif()
target_sources(querna_core INTERFACE
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${manifest}>)
if(MINGW)
    add_library(thread_locals OBJECT ${PROJECT_SOURCE_DIR}/packaging/windows/threadLocals.cpp)
    target_link_libraries(thread_locals PRIVATE querna_options)
    target_sources(querna_core INTERFACE
        $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:$<TARGET_OBJECTS:thread_locals>>)
endif()

set(icon_line "")
if(QUERNA_DRAWN_ICONS)
    set(icon_line "1 ICON \"${icon_folder}/querna.ico\"")
    set_property(SOURCE ${CMAKE_CURRENT_BINARY_DIR}/querna.rc PROPERTY OBJECT_DEPENDS ${icon_folder}/querna.ico)
endif()
configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/querna.rc.in querna.rc @ONLY)
target_sources(Querna PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/querna.rc)
