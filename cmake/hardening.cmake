# A mistake with memory ends a program instead of being used: guards on the stack, checked calls of
# the C library, and on Linux tables of addresses that are read-only once the program runs. A test
# reads each back from the built programs (tests/binaries/).
add_library(quarnel_hardening INTERFACE)
# The checked calls need a build that optimises; sanitizers do the same in their own way.
target_compile_options(
    quarnel_hardening INTERFACE
    -fstack-protector-strong "$<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
# Linking needs it too, where the guards come from a library of the compiler's.
target_link_options(quarnel_hardening INTERFACE -fstack-protector-strong)
if(NOT WIN32)
    target_link_options(quarnel_hardening INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()
