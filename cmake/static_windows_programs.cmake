# Windows programs need no DLL that Windows does not bring, and are linked with address space
# layout randomisation, data execution prevention and high-entropy addresses.
if(WIN32)
    add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0A00)
    add_link_options(-static -Wl,--dynamicbase -Wl,--nxcompat -Wl,--high-entropy-va)
endif()
