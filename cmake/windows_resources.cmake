# quarnel_windows_resources(TARGET DESCRIPTION [MANIFEST]): what Windows knows about a program: its version,
# the DESCRIPTION that Explorer and the list of processes show, and the manifest: one for all programs,
# unless a MANIFEST beside the folder's CMakeLists.txt is named.
function(quarnel_windows_resources target description)
    if(NOT WIN32)
        return()
    endif()
    set(manifest ${CMAKE_SOURCE_DIR}/cmake/windows_program.manifest)
    if(ARGC GREATER 2)
        set(manifest ${CMAKE_CURRENT_SOURCE_DIR}/${ARGV2})
    endif()
    set(script ${CMAKE_BINARY_DIR}/generated/${target}_resources.rc)
    configure_file(${CMAKE_SOURCE_DIR}/cmake/windows_resources.rc.in ${script} @ONLY)
    set_source_files_properties(${script} TARGET_DIRECTORY ${target}
                                PROPERTIES OBJECT_DEPENDS ${manifest})
    target_sources(${target} PRIVATE ${script})
    target_link_libraries(${target} PRIVATE quarnel_version)
endfunction()
