# Compile settings that every target of ours shares.
add_library(querna_options INTERFACE)
set(warnings
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wcast-qual -Wimplicit-fallthrough -Wformat=2 -Werror)
if(MSVC)
    set(warnings /W4)
endif()
target_compile_options(querna_options INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${warnings}>")
target_compile_definitions(querna_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(QUERNA_SANITIZE)
    target_compile_options(querna_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(querna_options INTERFACE -fsanitize=address,undefined)
endif()
if(QUERNA_FUZZ)
    # What a fuzzer is to find beside the sanitizers: positions out of range in Qt's containers and
    # the standard library's, which are asked for in their headers.
    target_compile_options(querna_options INTERFACE -fsanitize=fuzzer-no-link)
    target_compile_definitions(querna_options INTERFACE QT_FORCE_ASSERTS _GLIBCXX_ASSERTIONS)
endif()
