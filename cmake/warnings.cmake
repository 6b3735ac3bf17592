# Every warning is an error: a check that ends in a legal calculation has no place for one.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
