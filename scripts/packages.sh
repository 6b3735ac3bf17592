# Debian packages by purpose; sourced by ./run, ./test and the other scripts.
native_packages=(g++ cmake ninja-build googletest nlohmann-json3-dev libcli11-dev)
windows_packages=(g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix mingw-w64-tools)
wine_packages=(wine wine64 xvfb)
package_packages=(nsis zip unzip pandoc)
script_packages=(python3 pandoc)
desktop_packages=(imagemagick fonts-wine)
desktop_test_packages=(icoutils)
bench_packages=(libbenchmark-dev)
