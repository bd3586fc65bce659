# SPDX-License-Identifier: MIT
# Compiler settings shared by every target of the project.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

if(BVWIDGETS_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(CCACHE_PROGRAM ccache)
    if(CCACHE_PROGRAM)
        # Precompiled headers are only cacheable with relaxed time and macro checks.
        set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
            CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}"
            "${CCACHE_PROGRAM}")
    endif()
endif()

# Adds warnings, sanitizers and the toolkit's strictness macros to a target.
function(bvwidgets_target_defaults target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wcast-align -Wunused
        -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough
        $<$<BOOL:${BVWIDGETS_WERROR}>:-Werror>)
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING QT_DEPRECATED_WARNINGS)
    if(BVWIDGETS_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${BVWIDGETS_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
        target_link_options(${target} PRIVATE -fsanitize=${BVWIDGETS_SANITIZE})
    endif()
endfunction()
