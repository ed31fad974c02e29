# The third-party scripts of the page with their licences, from npm or from VANTREL_SCRIPTS_DIR:
# NAME.min.js and NAME.LICENSE in third_party_dir, and in notices a comment for the front of each.
set(third_party handlebars d3 htmlparser)
set(notices ${CMAKE_CURRENT_BINARY_DIR}/generated/notices)
set(third_party_dir ${CMAKE_CURRENT_BINARY_DIR}/third-party)
if(VANTREL_SCRIPTS_DIR)
    set(third_party_dir ${VANTREL_SCRIPTS_DIR})
endif()
set(third_party_files)
set(licences)
foreach(name IN LISTS third_party)
    list(APPEND licences ${third_party_dir}/${name}.LICENSE)
    list(APPEND third_party_files ${third_party_dir}/${name}.min.js ${third_party_dir}/${name}.LICENSE)
endforeach()

if(VANTREL_SCRIPTS_DIR)
    foreach(file IN LISTS third_party_files)
        if(NOT EXISTS ${file})
            message(SEND_ERROR "VANTREL_SCRIPTS_DIR has no ${file}. It needs each script and its "
                "licence, which goes with every copy and so into every page.")
        endif()
    endforeach()
else()
    find_program(NPM_EXECUTABLE npm)
    if(NOT NPM_EXECUTABLE)
        message(FATAL_ERROR "npm is needed to fetch handlebars, d3 and htmlparser; "
            "or give a folder that has them with -DVANTREL_SCRIPTS_DIR=")
    endif()
    set(npm_dir ${CMAKE_CURRENT_BINARY_DIR}/npm)
    set(modules ${npm_dir}/node_modules)
    set(package_files ${CMAKE_CURRENT_SOURCE_DIR}/package.json
        ${CMAKE_CURRENT_SOURCE_DIR}/package-lock.json)
    set(copies)
    foreach(copy handlebars/dist/handlebars.min.js d3/d3.min.js htmlparser/lib/htmlparser.min.js)
        string(REGEX MATCH "^[^/]+" name ${copy})
        list(APPEND copies
            COMMAND ${CMAKE_COMMAND} -E copy ${modules}/${copy} ${third_party_dir}/${name}.min.js
            COMMAND ${CMAKE_COMMAND} -E copy ${modules}/${name}/LICENSE ${third_party_dir}/${name}.LICENSE)
    endforeach()
    file(MAKE_DIRECTORY ${npm_dir} ${third_party_dir})
    add_custom_command(OUTPUT ${third_party_files}
        COMMAND ${CMAKE_COMMAND} -E copy ${package_files} ${npm_dir}
        COMMAND ${NPM_EXECUTABLE} ci --prefix ${npm_dir} --omit=dev --omit=optional
            --ignore-scripts --no-audit --no-fund --loglevel=error
        ${copies}
        COMMAND ${CMAKE_COMMAND} -E touch ${third_party_files}
        DEPENDS ${package_files}
        COMMENT "Fetching the third-party scripts")
endif()

list(TRANSFORM third_party REPLACE "(.+)" "${notices}/\\1.js" OUTPUT_VARIABLE notice_files)
add_custom_command(OUTPUT ${notice_files}
    COMMAND ${CMAKE_COMMAND} -DFROM=${third_party_dir} -DTO=${notices} "-DNAMES=${third_party}"
        -P ${CMAKE_CURRENT_SOURCE_DIR}/cmake/WriteNotices.cmake
    DEPENDS ${third_party_files} cmake/WriteNotices.cmake
    VERBATIM)
