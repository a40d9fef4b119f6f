# Checks the includes of every source folder against the layers:
#   VLANKit/       Qt Core only; nothing of OrvaneApp/ or orvanectl/; each of its folders
#                  includes only itself and the folders below it in VLANKIT_LAYERS
#   OrvaneApp/model/  Qt Core and Qt Gui, no widget header
#   orvanectl/     VLANKit and Qt Core only
#   only VLANKit/platform/sc/ and files named *_mac.* include Apple's frameworks
# Run as: cmake -DSOURCE_DIR=… -DQT_CORE=… -DQT_GUI=… -DQT_WIDGETS=… -P CheckIncludes.cmake

set(violations "")

# VLANKit's folders from the bottom up. The files at its root, `Platform` (the process's choice
# of backend, which every store is handed), stand just above the seam they choose from, as ROOT.
set(VLANKIT_LAYERS core formats values files machine platform ROOT internet project store)

# The rank of a VLANKit path ("VLANKit/store/VLANStore.h" is store's): its first folder's place
# in VLANKIT_LAYERS, -1 for a folder the list does not know.
function(vlankit_rank path out)
    string(REGEX REPLACE "^VLANKit/" "" rest "${path}")
    set(folder ROOT)
    if(rest MATCHES "/")
        string(REGEX MATCH "^[^/]+" folder "${rest}")
    endif()
    list(FIND VLANKIT_LAYERS ${folder} rank)
    set(${out} ${rank} PARENT_SCOPE)
endfunction()

function(qt_header_module header out)
    foreach(module CORE GUI WIDGETS)
        if(EXISTS "${QT_${module}}/${header}")
            set(${out} ${module} PARENT_SCOPE)
            return()
        endif()
    endforeach()
    set(${out} "" PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE sources RELATIVE ${SOURCE_DIR}
    ${SOURCE_DIR}/VLANKit/*.h ${SOURCE_DIR}/VLANKit/*.cpp ${SOURCE_DIR}/VLANKit/*.mm
    ${SOURCE_DIR}/OrvaneApp/*.h ${SOURCE_DIR}/OrvaneApp/*.cpp ${SOURCE_DIR}/OrvaneApp/*.mm
    ${SOURCE_DIR}/orvanectl/*.h ${SOURCE_DIR}/orvanectl/*.cpp)

foreach(source IN LISTS sources)
    file(STRINGS ${SOURCE_DIR}/${source} lines REGEX "^[ \t]*#[ \t]*(include|import)")
    foreach(line IN LISTS lines)
        string(REGEX MATCH "[<\"]([^>\"]+)[>\"]" _ "${line}")
        set(header "${CMAKE_MATCH_1}")
        set(problem "")
        if(header MATCHES "^(SystemConfiguration|CoreFoundation|Security|IOKit|Foundation|AppKit|Cocoa)/")
            if(NOT source MATCHES "^VLANKit/platform/sc/" AND NOT source MATCHES "_mac\\.(cpp|mm|h)$")
                set(problem "an Apple framework outside the macOS backend")
            endif()
        endif()
        if(source MATCHES "^(VLANKit|orvanectl)/")
            if(header MATCHES "^OrvaneApp/")
                set(problem "the application from a layer below it")
            endif()
            if(source MATCHES "^VLANKit/" AND header MATCHES "^orvanectl/")
                set(problem "the command line from the library")
            endif()
            if(source MATCHES "^VLANKit/" AND header MATCHES "^VLANKit/")
                vlankit_rank(${source} source_rank)
                vlankit_rank(${header} header_rank)
                if(source_rank EQUAL -1)
                    set(problem "a VLANKit folder that has no place among the layers")
                elseif(header_rank GREATER source_rank OR header_rank EQUAL -1)
                    set(problem "a VLANKit folder above its own")
                endif()
            endif()
            if(header MATCHES "^Q")
                qt_header_module(${header} module)
                if(module STREQUAL "GUI" OR module STREQUAL "WIDGETS")
                    set(problem "a Qt GUI header in a Core-only layer")
                endif()
            endif()
        elseif(source MATCHES "^OrvaneApp/model/")
            if(header MATCHES "^OrvaneApp/surfaces/")
                set(problem "a surface from the model")
            endif()
            if(header MATCHES "^Q")
                qt_header_module(${header} module)
                if(module STREQUAL "WIDGETS")
                    set(problem "a widget header in the model")
                endif()
            endif()
        endif()
        if(problem)
            list(APPEND violations "${source}: includes ${header}: ${problem}")
        endif()
    endforeach()
endforeach()

if(violations)
    list(JOIN violations "\n" text)
    message(FATAL_ERROR "Includes that cross the layers:\n${text}")
endif()
list(LENGTH sources count)
message(STATUS "${count} sources checked; every include follows the layers.")
