# The same sources give the same programs, wherever and whenever they are built: neither the folder
# of the checkout nor the time of linking is in them.
add_library(quarnel_reproducible INTERFACE)
target_compile_options(quarnel_reproducible INTERFACE
                       "$<$<CONFIG:Release>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=>")
if(MINGW)
    target_link_options(quarnel_reproducible INTERFACE -Wl,--no-insert-timestamp)
endif()
