include_guard(GLOBAL)

# Warnings are written once, here, for every target of the project.
function(orvane_set_warnings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wnon-virtual-dtor
        -Woverloaded-virtual)
    # GCC 12 reports std::optional members as maybe-uninitialized at -O2 where they are not
    # (a known false positive of its inliner); the warning stays on in debug builds.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-Wno-maybe-uninitialized>)
    endif()
    if(ORVANE_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(ORVANE_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII
        QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
endfunction()

# orvane_add_layer(OrvaneModel SOURCES … DEPENDS VLANKit Qt6::Core)
function(orvane_add_layer name)
    cmake_parse_arguments(A "" "" "SOURCES;DEPENDS" ${ARGN})
    add_library(${name} STATIC ${A_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${A_DEPENDS})
    orvane_set_warnings(${name})
endfunction()

# orvane_add_gtest(ValuesTests LABEL values SOURCES … DEPENDS VLANKit [MAIN Core|Gui|Widgets])
# Links the shared test support and the main of the chosen Qt application kind (Core unless
# told), and registers every test case with CTest under one label.
function(orvane_add_gtest name)
    cmake_parse_arguments(A "" "LABEL;MAIN" "SOURCES;DEPENDS" ${ARGN})
    if(NOT A_MAIN)
        set(A_MAIN Core)
    endif()
    add_executable(${name} ${A_SOURCES} $<TARGET_OBJECTS:OrvaneTestMain${A_MAIN}>)
    target_link_libraries(${name} PRIVATE OrvaneTestSupport ${A_DEPENDS} GTest::gtest Qt6::Test
        Qt6::${A_MAIN})
    orvane_set_warnings(${name})
    gtest_discover_tests(${name}
        PROPERTIES LABELS ${A_LABEL}
        DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 60)
endfunction()

# The sources of a folder, without the platform halves that belong to another system:
# Name_mac.cpp on Apple, Name_linux.cpp elsewhere.
function(orvane_glob_sources out)
    set(found)
    foreach(dir IN LISTS ARGN)
        file(GLOB here CONFIGURE_DEPENDS ${dir}/*.cpp ${dir}/*.h)
        list(APPEND found ${here})
    endforeach()
    if(APPLE)
        list(FILTER found EXCLUDE REGEX "_linux\\.cpp$")
    else()
        list(FILTER found EXCLUDE REGEX "_mac\\.(cpp|mm)$")
    endif()
    set(${out} ${found} PARENT_SCOPE)
endfunction()
