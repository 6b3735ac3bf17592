# Command-line programs on Windows take and print paths in any script: their manifest makes UTF-8
# the narrow code page of the process, as it is elsewhere.
function(quarnel_console_program target)
    if(WIN32)
        target_sources(${target} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/console_program.rc)
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS
                     ${CMAKE_SOURCE_DIR}/cmake/console_program.manifest)
    endif()
endfunction()
