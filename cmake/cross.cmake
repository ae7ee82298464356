# Debian's cross compilers: -DWLAN_TRIPLET=arm-linux-gnueabihf, aarch64-linux-gnu or i686-linux-gnu.
set(CMAKE_SYSTEM_NAME Linux)
string(REGEX MATCH "^[^-]+" CMAKE_SYSTEM_PROCESSOR ${WLAN_TRIPLET})
set(CMAKE_C_COMPILER ${WLAN_TRIPLET}-gcc)
set(CMAKE_CXX_COMPILER ${WLAN_TRIPLET}-g++)
set(CMAKE_STRIP ${WLAN_TRIPLET}-strip)
string(REPLACE i686 i386 CMAKE_LIBRARY_ARCHITECTURE ${WLAN_TRIPLET}) # the directory of its libraries
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/pkgconfig:/usr/share/pkgconfig)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES WLAN_TRIPLET)
