# Compiles the resources of the report into one source file, VANTREL_RESOURCE_SOURCE: ours from
# resources/ and the third-party scripts.
set(generated ${CMAKE_CURRENT_BINARY_DIR}/generated)
set(custom ${CMAKE_CURRENT_SOURCE_DIR}/resources/custom)

# The chart is left out by pages that say so for browsers that can't draw it.
file(WRITE ${generated}/d3-begin.js "if(!window.LTE_IE_8){\n")
file(WRITE ${generated}/d3-end.js "\n}\n")
set(handlebars_script ${generated}/handlebars.min-v4.0.5.js)
set(d3_script ${generated}/d3.v3.min.js)
set(htmlparser_script ${generated}/htmlparser.js)
set(adapter ${custom}/htmlparser.js/builder.js)
set(from ${third_party_dir})
add_custom_command(OUTPUT ${handlebars_script} ${d3_script} ${htmlparser_script}
    COMMAND ${CMAKE_COMMAND} -E cat ${notices}/handlebars.js ${from}/handlebars.min.js
        > ${handlebars_script}
    COMMAND ${CMAKE_COMMAND} -E cat ${notices}/d3.js ${generated}/d3-begin.js ${from}/d3.min.js
        ${generated}/d3-end.js > ${d3_script}
    COMMAND ${CMAKE_COMMAND} -E cat ${notices}/htmlparser.js ${from}/htmlparser.min.js ${adapter}
        > ${htmlparser_script}
    DEPENDS ${third_party_files} ${notice_files} ${adapter}
    VERBATIM)

# Two of our own scripts and the style sheet are kept in fragments, in folders of their names, and
# joined in this order.
set(report-engine.js report-text.js report-templates.js report-helpers.js engine.js)
set(vantrel.js values-and-colours.js vantrel-helpers.js page-title.js page-details.js page-logos.js
    page-sections.js page-copying.js page-start.js)
set(vantrel.css colours.css page.css header.css summary.css forced-colours.css subsections.css
    narrow-windows.css print.css)
set(joined)
foreach(name report-engine.js vantrel.js vantrel.css)
    list(TRANSFORM ${name} PREPEND ${custom}/${name}/ OUTPUT_VARIABLE fragments)
    add_custom_command(OUTPUT ${generated}/${name}
        COMMAND ${CMAKE_COMMAND} -E cat ${fragments} > ${generated}/${name}
        DEPENDS ${fragments}
        VERBATIM)
    list(APPEND joined ${generated}/${name})
endforeach()

set(resource_files)
set(qrc "<RCC>\n")
# A folder of the compiled-in resources with these files.
macro(vantrel_resource_folder folder)
    string(APPEND qrc "<qresource prefix=\"/vantrel/${folder}\">\n")
    foreach(path ${ARGN})
        get_filename_component(name ${path} NAME)
        string(APPEND qrc "<file alias=\"${name}\">${path}</file>\n")
        list(APPEND resource_files ${path})
    endforeach()
    string(APPEND qrc "</qresource>\n")
endmacro()
set(names
    header-data.json header.html
    corvane.js polyfill.js radar-chart.js
    logo.png powered-by-corvane-reports.png
    validation.xsd)
list(TRANSFORM names PREPEND ${custom}/)
# Which templates there must be is told in src/render/report_templates.h.
set(VANTREL_TEMPLATES_DIR ${CMAKE_CURRENT_SOURCE_DIR}/resources/custom/templates)
file(GLOB templates CONFIGURE_DEPENDS ${VANTREL_TEMPLATES_DIR}/*)
vantrel_resource_folder(custom
    ${templates} ${names} ${handlebars_script} ${d3_script} ${htmlparser_script} ${joined})
set(shell ${CMAKE_CURRENT_SOURCE_DIR}/resources/shell)
vantrel_resource_folder(shell
    ${shell}/page.html ${shell}/script.html ${shell}/script_file.html ${shell}/template.html)
vantrel_resource_folder(interpreter
    ${CMAKE_CURRENT_SOURCE_DIR}/resources/interpreter/prelude.js)
string(APPEND qrc "</RCC>\n")
file(CONFIGURE OUTPUT ${generated}/vantrel.qrc CONTENT "${qrc}")

set(VANTREL_RESOURCE_SOURCE ${generated}/qrc_vantrel.cpp)
add_custom_command(OUTPUT ${VANTREL_RESOURCE_SOURCE}
    COMMAND Qt5::rcc --no-compress --name vantrel ${generated}/vantrel.qrc
        -o ${VANTREL_RESOURCE_SOURCE}
    DEPENDS ${generated}/vantrel.qrc ${resource_files}
    VERBATIM)
