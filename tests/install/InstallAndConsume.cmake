# Installs the build in BUILD_DIR below WORK_DIR, builds the consumer against what was installed and
# runs it. Arguments: SOURCE_DIR, BUILD_DIR, WORK_DIR, CXX_COMPILER, CXX_FLAGS.

function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        string(REPLACE ";" " " command "${ARGV}")
        message(FATAL_ERROR "${command}\n${output}\nended with ${result}")
    endif()
endfunction()

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

# Every public header is there, and none of the private ones.
file(GLOB expected RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/zenu/*.h ${SOURCE_DIR}/zenu/*/*.h)
file(GLOB_RECURSE installed RELATIVE ${prefix}/include ${prefix}/include/*)
list(SORT expected)
list(SORT installed)
if(NOT expected STREQUAL installed)
    message(FATAL_ERROR "installed headers:\n${installed}\nexpected:\n${expected}")
endif()

# What is installed may be moved, and never looks back at where it was built.
file(RENAME ${prefix} ${WORK_DIR}/moved)
set(prefix ${WORK_DIR}/moved)
file(GLOB_RECURSE package ${prefix}/*.cmake)
foreach(file IN LISTS package)
    file(READ ${file} text)
    string(FIND "${text}" "${SOURCE_DIR}" at)
    if(NOT at EQUAL -1)
        message(FATAL_ERROR "${file} names the source directory")
    endif()
endforeach()

run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/install/consumer -B ${WORK_DIR}/consumer -G Ninja
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
    "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}" -DFIRST_PROGRAM=${SOURCE_DIR}/examples/first/main.cpp)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/consumer)
run(${WORK_DIR}/consumer/consumer)
