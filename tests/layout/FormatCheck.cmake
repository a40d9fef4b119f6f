# Fails when a source file differs from what clang-format makes of it.
# Run as: cmake -DSOURCE_DIR=… -DCLANG_FORMAT=… -P FormatCheck.cmake
file(GLOB_RECURSE sources
    ${SOURCE_DIR}/VLANKit/*.h ${SOURCE_DIR}/VLANKit/*.cpp
    ${SOURCE_DIR}/OrvaneApp/*.h ${SOURCE_DIR}/OrvaneApp/*.cpp
    ${SOURCE_DIR}/orvanectl/*.h ${SOURCE_DIR}/orvanectl/*.cpp
    ${SOURCE_DIR}/tests/*.h ${SOURCE_DIR}/tests/*.cpp
    ${SOURCE_DIR}/bench/*.cpp ${SOURCE_DIR}/fuzz/*.cpp)
list(FILTER sources EXCLUDE REGEX "/tests/layout/wrong/")
execute_process(COMMAND ${CLANG_FORMAT} --dry-run --Werror ${sources}
    RESULT_VARIABLE result ERROR_VARIABLE problems)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "Run scripts/format: these lines differ from .clang-format:\n${problems}")
endif()
