# The version of project(), for sources and resource scripts: #include "version.h".
configure_file(${CMAKE_SOURCE_DIR}/cmake/version.h.in ${CMAKE_BINARY_DIR}/generated/version.h @ONLY)
add_library(quarnel_version INTERFACE)
target_include_directories(quarnel_version INTERFACE ${CMAKE_BINARY_DIR}/generated)
