# Every warning is an error: a check that ends in a legal calculation has no place for one.
add_library(quarnel_warnings INTERFACE)
target_compile_options(quarnel_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                                                  -Werror)
