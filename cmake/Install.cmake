# The headers, the libraries with the module, what others find them by (a CMake package and pkg-config
# files), the tool, the default definition, the schema for editors, and the licences of what goes into pages.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vantrel)

install(TARGETS vantrel vantrel_late EXPORT vantrel-targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS vantrel_explainer
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/${VANTREL_MODULE_DIR})
if(VANTREL_BUILD_TOOL)
    install(TARGETS vantrel_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    # The tool is made of CLI11's headers too, whose licence asks to go with it.
    find_file(VANTREL_CLI11_LICENCE NAMES LICENSE copyright NO_DEFAULT_PATH
        PATHS ${CLI11_DIR}/../../doc/CLI11 /usr/share/doc/libcli11-dev
        DOC "The licence of CLI11, which is installed with the tool")
    if(NOT VANTREL_CLI11_LICENCE)
        message(FATAL_ERROR "Give the file of CLI11's licence: -DVANTREL_CLI11_LICENCE=FILE")
    endif()
    install(FILES ${VANTREL_CLI11_LICENCE} DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME CLI11.LICENSE)
endif()
install(FILES include/vantrel.h include/vantrel_late.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT vantrel-targets NAMESPACE vantrel:: DESTINATION ${package_dir})

configure_package_config_file(cmake/vantrel-config.cmake.in generated/vantrel-config.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(generated/vantrel-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/generated/vantrel-config.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/generated/vantrel-config-version.cmake
    DESTINATION ${package_dir})

# The pkg-config files find the root from where they lie, so an installation can be moved. Folders
# that were given as whole paths don't move.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    set(pc_prefix "${CMAKE_INSTALL_PREFIX}")
else()
    set(to_root /)
    cmake_path(RELATIVE_PATH to_root BASE_DIRECTORY "/${CMAKE_INSTALL_LIBDIR}/pkgconfig")
    set(pc_prefix "\${pcfiledir}/${to_root}")
endif()
foreach(folder LIBDIR INCLUDEDIR)
    set(pc_${folder} "${CMAKE_INSTALL_${folder}}")
    if(NOT IS_ABSOLUTE "${pc_${folder}}")
        string(PREPEND pc_${folder} "\${prefix}/")
    endif()
endforeach()
list(TRANSFORM CMAKE_DL_LIBS PREPEND -l OUTPUT_VARIABLE pc_DL_LIBS)
foreach(name vantrel vantrel-late)
    configure_file(cmake/${name}.pc.in generated/${name}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/generated/${name}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

# The folder of shared data is the root below which the library looks for it.
install(FILES resources/report-default.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/vantrel/templates)

install(FILES resources/custom/validation.xsd resources/catalog.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/vantrel)
install(FILES ${licences} DESTINATION ${CMAKE_INSTALL_DOCDIR})
