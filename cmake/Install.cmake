# The header, the library, what others find it by (a CMake package and a pkg-config file), the
# default definition, and the schema for editors.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vantrel)

install(TARGETS vantrel EXPORT vantrel-targets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES include/vantrel.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT vantrel-targets NAMESPACE vantrel:: DESTINATION ${package_dir})

configure_package_config_file(cmake/vantrel-config.cmake.in generated/vantrel-config.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(generated/vantrel-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/generated/vantrel-config.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/generated/vantrel-config-version.cmake
    DESTINATION ${package_dir})

configure_file(cmake/vantrel.pc.in generated/vantrel.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/generated/vantrel.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# The library looks for it at this place below the installation's root.
install(FILES resources/report-default.xml DESTINATION vantrel/templates)

install(FILES resources/custom/validation.xsd resources/catalog.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/vantrel)
