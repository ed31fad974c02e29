# What vantrel_library_id_string() tells of the build: version, build identifier, platform.
find_package(Git QUIET)
set(VANTREL_BUILD_ID "" CACHE STRING "Build identifier, twelve hexadecimal digits")
set(build_id "${VANTREL_BUILD_ID}")
if(NOT build_id AND Git_FOUND)
    # A tree without a history of its own may lie in that of another project.
    get_filename_component(above ${CMAKE_CURRENT_SOURCE_DIR} DIRECTORY)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env GIT_CEILING_DIRECTORIES=${above}
            ${GIT_EXECUTABLE} rev-parse --short=12 HEAD
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
        OUTPUT_VARIABLE build_id OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()
if(NOT build_id MATCHES "^[0-9a-f]+$" OR NOT build_id MATCHES "^............$")
    set(build_id 000000000000)
endif()

cmake_host_system_information(RESULT os QUERY DISTRIB_INFO)
string(REGEX MATCH "^[^ ]+" os_name "${os_NAME}")
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/generated/build_id.h CONTENT [[
#pragma once

#define VANTREL_SOFTWARE_VERSION "@PROJECT_VERSION@"
#define VANTREL_BUILD_ID "@build_id@"
#define VANTREL_PLATFORM_NAME "@os_name@"
#define VANTREL_PLATFORM_VERSION "@os_VERSION_ID@"
#define VANTREL_PLATFORM_ARCH "@CMAKE_SYSTEM_PROCESSOR@"
]] @ONLY)
