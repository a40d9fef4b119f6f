# Every library comes from the system's packages: Debian's on Linux, Homebrew's on a Mac.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets)
find_package(PkgConfig REQUIRED)

# libplist 2.2 ships no CMake package, only a pkg-config file.
pkg_check_modules(PLIST REQUIRED IMPORTED_TARGET libplist-2.0)
find_package(ICU 70 REQUIRED COMPONENTS uc i18n)
find_package(tomlplusplus 3 QUIET)
if(NOT tomlplusplus_FOUND)
    pkg_check_modules(TOMLPP REQUIRED IMPORTED_TARGET tomlplusplus)
    add_library(tomlplusplus::tomlplusplus ALIAS PkgConfig::TOMLPP)
endif()

if(BUILD_TESTING)
    find_package(Qt6 REQUIRED COMPONENTS Test)
    find_package(GTest REQUIRED)
endif()
if(ORVANE_BUILD_BENCH)
    find_package(benchmark REQUIRED)
endif()
