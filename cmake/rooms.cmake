# One library per folder of the project.
#
# A folder sees its own headers and those of the folders that it USES, and no others: each folder's
# headers stand alone in the build tree, so an include that goes past this table does not compile.
# docs/architecture.md has the table for readers, and a test holds the two together.
add_library(quarnel_build_options INTERFACE)
target_link_libraries(quarnel_build_options INTERFACE quarnel_warnings quarnel_portable_arithmetic
                                                      quarnel_windows_programs quarnel_hardening
                                                      quarnel_reproducible)

# Gives `target` the headers of one folder of the project.
function(quarnel_headers target visibility folder)
    set(place ${CMAKE_BINARY_DIR}/rooms/${folder})
    get_filename_component(parent ${place}/${folder} DIRECTORY)
    file(MAKE_DIRECTORY ${parent})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${place}/${folder} SYMBOLIC)
    target_include_directories(${target} ${visibility} ${place})
endfunction()

# quarnel_room(TARGET SOURCES ... [USES ...] [KEEPS ...]): the library of the folder that calls it.
# USES: what its headers need, passed on to whoever uses this one; KEEPS: what only its sources need.
function(quarnel_room target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES;KEEPS")
    file(RELATIVE_PATH folder ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    add_library(${target} STATIC ${arg_SOURCES})
    quarnel_headers(${target} PUBLIC ${folder})
    target_link_libraries(${target} PUBLIC ${arg_USES} PRIVATE ${arg_KEEPS} quarnel_build_options)
endfunction()

# quarnel_program(TARGET [WIN32] SOURCES ... USES ...): a program of the folder that calls it.
function(quarnel_program target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "WIN32" "" "SOURCES;USES")
    file(RELATIVE_PATH folder ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    add_executable(${target} ${arg_SOURCES})
    set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ${arg_WIN32})
    quarnel_headers(${target} PRIVATE ${folder})
    target_link_libraries(${target} PRIVATE ${arg_USES} quarnel_build_options)
endfunction()
