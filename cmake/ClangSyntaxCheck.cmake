# Checks that every source of a configured build also compiles with clang, without building
# anything: Apple's compilers are clang, and clang before 17 refuses some C++20 that GCC takes
# (aggregates deduced without a deduction guide).
# Run as: cmake -DBUILD_DIR=… -DCLANG=clang++-14 -P ClangSyntaxCheck.cmake
# It turns the build's compile_commands.json into a ninja file of syntax-only compilations and
# runs that, so the checks share the machine's cores.

file(READ ${BUILD_DIR}/compile_commands.json commands)
string(JSON count LENGTH "${commands}")
set(check_dir ${BUILD_DIR}/clang-syntax)
# Stamps would not see a changed header: every run checks every source.
file(REMOVE_RECURSE ${check_dir})
file(MAKE_DIRECTORY ${check_dir})
set(ninja "rule check\n  command = cd $dir && $command && touch $out\n  description = clang $in\n\n")
math(EXPR last "${count} - 1")
foreach(index RANGE ${last})
    string(JSON directory GET "${commands}" ${index} directory)
    string(JSON source GET "${commands}" ${index} file)
    string(JSON command GET "${commands}" ${index} command)
    # Only the project's own sources: Qt's generated files are no concern of this check.
    if(source MATCHES "_autogen/|/qrc_|\\.rcc/")
        continue()
    endif()
    # The compiler (behind ccache) becomes clang; no object is written.
    string(REGEX REPLACE "^[^ ]*ccache +" "" command "${command}")
    string(REGEX REPLACE "^[^ ]+" "${CLANG}" command "${command}")
    string(REGEX REPLACE " -o [^ ]+" "" command "${command}")
    string(REGEX REPLACE " -MD| -MT [^ ]+| -MF [^ ]+" "" command "${command}")
    # Warnings are errors, as in CI; GCC's own warning options mean nothing to clang.
    string(REPLACE " -c " " -fsyntax-only -Werror -Wno-unknown-warning-option " command "${command}")
    string(REPLACE "$" "$$" command "${command}")
    string(REPLACE ":" "$:" escaped_source "${source}")
    string(APPEND ninja "build ${check_dir}/${index}.ok: check ${escaped_source}\n"
        "  dir = ${directory}\n  command = ${command}\n")
endforeach()
file(WRITE ${check_dir}/build.ninja "${ninja}")
execute_process(COMMAND ninja -C ${check_dir} -k 0 RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "Some sources do not compile with ${CLANG}.")
endif()
message(STATUS "Every source compiles with ${CLANG}.")
