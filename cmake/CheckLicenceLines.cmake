# SPDX-License-Identifier: MIT
# Fails when a source file under SOURCE_DIR has not exactly one licence line, or has it not at its top,
# where only the line that names an interpreter or an XML version may stand before it.
cmake_minimum_required(VERSION 3.25)

string(CONCAT licence "SPDX-License" "-Identifier: MIT") # joined, so that this file has one such line
set(patterns "\\.(h|cpp|inc|in|cmake|css|qrc|ts|svg|sh|supp)$" "/CMakeLists\\.txt$" "/\\.clang-[a-z]+$"
    "/(run|test|with_display|build_with_pkgconfig)$")
list(JOIN patterns "|" pattern)

file(GLOB_RECURSE files LIST_DIRECTORIES OFF RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/*")
list(TRANSFORM files PREPEND "/")
list(FILTER files EXCLUDE REGEX "^/(build[^/]*|\\.git|pictures)/|/corpus/")
list(FILTER files INCLUDE REGEX "${pattern}")

set(faults "")
foreach(file IN LISTS files)
    file(STRINGS "${SOURCE_DIR}${file}" lines REGEX "SPDX-License-Identifier[:]")
    list(LENGTH lines count)
    file(READ "${SOURCE_DIR}${file}" top LIMIT 200)
    if(NOT count EQUAL 1)
        string(APPEND faults "  ${file}: ${count} licence lines\n")
    elseif(NOT top MATCHES "^((#!|<\\?xml|<!DOCTYPE)[^\n]*\n)*[^\n]*${licence}")
        string(APPEND faults "  ${file}: the licence line is not the first\n")
    endif()
endforeach()
if(faults OR NOT files)
    message(FATAL_ERROR "Every source file begins with one line \"${licence}\":\n${faults}")
endif()
