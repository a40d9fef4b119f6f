# Installs the build into a temporary root and checks that the programs, the desktop entry and
# the icon stand where desktops look for them.
# Run as: cmake -DBUILD_DIR=… -DROOT=… -P InstallCheck.cmake
file(REMOVE_RECURSE ${ROOT})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix /usr
    RESULT_VARIABLE status OUTPUT_QUIET)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "cmake --install failed")
endif()
foreach(path
        usr/bin/orvane
        usr/bin/orvanectl
        usr/share/applications/com.quillfence.orvane.desktop
        usr/share/icons/hicolor/scalable/apps/com.quillfence.orvane.svg)
    if(NOT EXISTS ${ROOT}/${path})
        message(FATAL_ERROR "${path} is not installed")
    endif()
endforeach()
file(READ ${ROOT}/usr/share/applications/com.quillfence.orvane.desktop entry)
if(NOT entry MATCHES "Exec=orvane\n" OR NOT entry MATCHES "Icon=com.quillfence.orvane\n")
    message(FATAL_ERROR "the desktop entry does not start orvane with its icon")
endif()
file(REMOVE_RECURSE ${ROOT})
