# The library exports what cmake/exports.txt lists, one name a line, and nothing else: from it come the module
# definition file (Windows) and the version script (elsewhere). A listed name without a definition fails the link.
set(KALODATA_EXPORT_LIST ${PROJECT_SOURCE_DIR}/cmake/exports.txt CACHE INTERNAL "Names that the library exports")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${KALODATA_EXPORT_LIST})

function(kalodata_export_only_listed target)
    set(semicolon ";")
    file(STRINGS ${KALODATA_EXPORT_LIST} names)
    if(WIN32)
        list(JOIN names "\n    " lines)
        set(definition ${CMAKE_CURRENT_BINARY_DIR}/Kalodata.def)
        file(CONFIGURE OUTPUT ${definition} CONTENT "LIBRARY Kalodata.dll\nEXPORTS\n    @lines@\n" @ONLY)
        target_sources(${target} PRIVATE ${definition})
    else()
        list(JOIN names ";\n        " lines)
        set(script ${CMAKE_CURRENT_BINARY_DIR}/kalodata.map)
        file(CONFIGURE OUTPUT ${script}
             CONTENT "KALODATA_${PROJECT_VERSION_MAJOR} {\n    global:\n        @lines@@semicolon@\n    local: *@semicolon@\n}@semicolon@\n" @ONLY)
        target_link_options(${target} PRIVATE -Wl,--version-script=${script} -Wl,--no-undefined-version)
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
    endif()
endfunction()
