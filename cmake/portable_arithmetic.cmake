# The same building gives the same digits on every processor: no fused multiply-add.
add_library(quarnel_portable_arithmetic INTERFACE)
target_compile_options(quarnel_portable_arithmetic INTERFACE -ffp-contract=off)
