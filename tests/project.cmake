# Tests of the project itself: include rules, headers, installed package, documentation.

find_package(Python3 3.9 COMPONENTS Interpreter REQUIRED)

add_test(NAME layers COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/scripts/check-layers)
add_test(NAME layers_script
         COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/layers/check_layers_test.py)

add_test(NAME documentation COMMAND ${PROJECT_SOURCE_DIR}/scripts/check-docs
         ${PROJECT_BINARY_DIR}/docs)
set_tests_properties(documentation PROPERTIES SKIP_RETURN_CODE 77)

# Each public header compiled as the only include of a source, with the settings of an application
# and all warnings on. Built by its test, so that a header that fails is a failed test.
file(GLOB public_headers RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS
     ${PROJECT_SOURCE_DIR}/zenu/*.h ${PROJECT_SOURCE_DIR}/zenu/*/*.h)
set(lonely_sources)
foreach(header IN LISTS public_headers)
    string(REGEX REPLACE "[/.]" "_" name ${header})
    set(source ${CMAKE_CURRENT_BINARY_DIR}/headers/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include <@header@>\n" @ONLY)
    list(APPEND lonely_sources ${source})
endforeach()
add_library(zenu_headers OBJECT EXCLUDE_FROM_ALL ${lonely_sources})
target_compile_options(zenu_headers PRIVATE -O0 -g0 -Wall -Wextra -Wpedantic -Wconversion -Werror)
target_include_directories(zenu_headers PRIVATE ${PROJECT_SOURCE_DIR})
target_link_libraries(zenu_headers PRIVATE Qt6::Widgets)
add_test(NAME headers
         COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} --target zenu_headers)
set_tests_properties(headers PROPERTIES TIMEOUT 600 RESOURCE_LOCK build_directory)

# The installed package, with a program that uses it. A sanitized library needs a sanitized program.
set(consumer_flags "")
if(ZENU_SANITIZE)
    string(APPEND consumer_flags " -fsanitize=address,undefined -fno-sanitize=vptr")
endif()
if(ZENU_COVERAGE)
    string(APPEND consumer_flags " --coverage")
endif()
add_test(NAME install COMMAND ${CMAKE_COMMAND}
         -DSOURCE_DIR=${PROJECT_SOURCE_DIR}
         -DBUILD_DIR=${PROJECT_BINARY_DIR}
         -DWORK_DIR=${CMAKE_CURRENT_BINARY_DIR}/install
         -DCXX_COMPILER=${CMAKE_CXX_COMPILER}
         -DCXX_FLAGS=${consumer_flags}
         -P ${CMAKE_CURRENT_SOURCE_DIR}/install/InstallAndConsume.cmake)
set_tests_properties(install PROPERTIES ENVIRONMENT "${zenu_test_environment}" TIMEOUT 600
                     RESOURCE_LOCK build_directory)

# The explorer draws one frame of a real directory, and one of computed rows.
if(TARGET zenu_explorer)
    add_test(NAME explorer_directory COMMAND zenu_explorer ${PROJECT_SOURCE_DIR}/zenu
             --picture ${CMAKE_CURRENT_BINARY_DIR}/explorer_directory.png)
    add_test(NAME explorer_rows COMMAND zenu_explorer --rows 100000
             --picture ${CMAKE_CURRENT_BINARY_DIR}/explorer_rows.png)
    set_tests_properties(explorer_directory explorer_rows PROPERTIES
                         ENVIRONMENT "${zenu_test_environment}" TIMEOUT 120)
endif()
