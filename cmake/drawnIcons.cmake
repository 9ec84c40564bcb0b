# The icons as pictures, for a program without an SVG library. Sets icon_resources, what they are
# compiled in from, and icon_folder, where querna.ico is too.
set(icon_folder ${CMAKE_BINARY_DIR}/icons)
set(icon_resources ${icon_folder}/resources.qrc)
file(GLOB icon_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/resources/icons/*.svg)
add_custom_command(OUTPUT ${icon_resources} ${icon_folder}/querna.ico
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/draw-icons ${PROJECT_SOURCE_DIR}/resources/icons ${icon_folder}
    DEPENDS ${icon_sources} ${PROJECT_SOURCE_DIR}/scripts/draw-icons
    COMMENT "Drawing the icons" VERBATIM)
