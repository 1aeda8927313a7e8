# Flags that every target of this project is compiled with; users of the installed library get none of them.

add_library(zenu_flags INTERFACE)
target_compile_options(zenu_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion
                       $<$<BOOL:${ZENU_WERROR}>:-Werror>)
target_compile_definitions(zenu_flags INTERFACE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII
                           QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(ZENU_SANITIZE)
    # A typeinfo of a hidden class differs between the library and a test, which -fsanitize=vptr takes for an error.
    target_compile_options(zenu_flags INTERFACE -fsanitize=address,undefined -fno-sanitize=vptr
                           -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(zenu_flags INTERFACE -fsanitize=address,undefined)
endif()
if(ZENU_FUZZ)
    target_compile_options(zenu_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(ZENU_COVERAGE)
    target_compile_options(zenu_flags INTERFACE --coverage)
    target_link_options(zenu_flags INTERFACE --coverage)
endif()

# zenu_program(<name>): one program of all sources in the folder of the caller.
function(zenu_program name)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_executable(${name} ${sources})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE zenu::zenu zenu_flags)
endfunction()
