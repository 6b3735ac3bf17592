# Windows programs need no DLL that Windows does not bring, and are linked with address space
# layout randomisation, data execution prevention and high-entropy addresses.
add_library(quarnel_windows_programs INTERFACE)
if(WIN32)
    target_compile_definitions(quarnel_windows_programs INTERFACE UNICODE _UNICODE
                               WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0A00)
endif()
if(MINGW)
    target_link_options(quarnel_windows_programs INTERFACE -static -Wl,--dynamicbase
                        -Wl,--nxcompat -Wl,--high-entropy-va)
endif()
