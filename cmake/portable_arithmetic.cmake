# The same building gives the same digits on every processor: no fused multiply-add.
add_compile_options(-ffp-contract=off)
