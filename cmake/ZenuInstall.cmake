# What `cmake --install` lays down: the library, the public headers and the package that
# find_package(zenu) reads. A header directly in zenu/<folder>/ is public; one further down is private.

include(CMakePackageConfigHelpers)

set(zenu_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zenu)

install(TARGETS zenu EXPORT zenuTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

file(GLOB zenu_public_headers RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS
     ${PROJECT_SOURCE_DIR}/zenu/*.h ${PROJECT_SOURCE_DIR}/zenu/*/*.h)
foreach(header IN LISTS zenu_public_headers)
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${PROJECT_SOURCE_DIR}/${header}
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
endforeach()

install(EXPORT zenuTargets NAMESPACE zenu:: DESTINATION ${zenu_package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/zenuConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/zenuConfig.cmake
                              INSTALL_DESTINATION ${zenu_package_dir})
# While the first number is 0 a new second number may change the interface.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zenuConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zenuConfig.cmake ${PROJECT_BINARY_DIR}/zenuConfigVersion.cmake
        DESTINATION ${zenu_package_dir})
