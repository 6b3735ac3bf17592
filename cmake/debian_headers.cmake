# Header-only libraries from Debian's packages.
#
# A cross build must not see /usr/include as a whole, so only each library's own folder is linked
# into the build tree.
set(QUARNEL_DEBIAN_HEADERS ${CMAKE_BINARY_DIR}/debian-headers)
file(MAKE_DIRECTORY ${QUARNEL_DEBIAN_HEADERS})

function(quarnel_header_library target folder package)
    if(NOT EXISTS /usr/include/${folder})
        message(FATAL_ERROR "/usr/include/${folder} is missing: install Debian's ${package}, "
                            "or start ./run or ./test, which install what is missing.")
    endif()
    file(CREATE_LINK /usr/include/${folder} ${QUARNEL_DEBIAN_HEADERS}/${folder} SYMBOLIC)
    add_library(${target} INTERFACE)
    target_include_directories(${target} SYSTEM INTERFACE ${QUARNEL_DEBIAN_HEADERS})
endfunction()

quarnel_header_library(debian_boost boost libboost1.81-dev)
quarnel_header_library(debian_nlohmann_json nlohmann nlohmann-json3-dev)
quarnel_header_library(debian_cli11 CLI libcli11-dev)
