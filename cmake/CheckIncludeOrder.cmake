# SPDX-License-Identifier: MIT
# Fails when a file under SOURCE_DIR includes a folder that stands above its own floor, climbs with
# "../", names a project header without its folder, or when a public header includes a private one.
cmake_minimum_required(VERSION 3.25)

set(floors platform foundation style controls units itemviews navigation layout)
# navigation and layout share the top floor and do not know each other
set(rank_platform 2)
set(rank_foundation 3)
set(rank_style 4)
set(rank_controls 5)
set(rank_units 6)
set(rank_itemviews 7)
set(rank_navigation 8)
set(rank_layout 8)

file(GLOB project_headers RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/*/*.h")
list(TRANSFORM project_headers REPLACE "^.*/" "")

set(faults "")
foreach(folder IN LISTS floors)
    file(GLOB sources "${SOURCE_DIR}/${folder}/*.h" "${SOURCE_DIR}/${folder}/*.cpp" "${SOURCE_DIR}/${folder}/*.inc")
    foreach(source IN LISTS sources)
        get_filename_component(name "${source}" NAME)
        file(STRINGS "${source}" includes REGEX "^[ \t]*#[ \t]*include")
        foreach(line IN LISTS includes)
            if(line MATCHES "\\.\\./")
                string(APPEND faults "  ${folder}/${name}: ${line} (climbs out of its folder)\n")
            endif()
            if(name MATCHES "\\.h$" AND NOT name MATCHES "_p\\.h$" AND line MATCHES "_p\\.h[\">]")
                string(APPEND faults "  ${folder}/${name}: ${line} (private header in a public one)\n")
            endif()
            if(line MATCHES "[\"<]([A-Za-z0-9_]+\\.h)[\">]" AND CMAKE_MATCH_1 IN_LIST project_headers)
                string(APPEND faults "  ${folder}/${name}: ${line} (its folder is not named)\n")
            endif()
            # The match is only there for the next command, so the conditions are nested.
            if(line MATCHES "[\"<]([a-z]+)/")
                set(other ${CMAKE_MATCH_1})
                if(DEFINED rank_${other} AND NOT other STREQUAL folder
                   AND NOT rank_${other} LESS rank_${folder})
                    string(APPEND faults "  ${folder}/${name}: ${line} (${other} stands above)\n")
                endif()
            endif()
        endforeach()
    endforeach()
endforeach()
if(faults)
    message(FATAL_ERROR "Includes must point down the floors:\n${faults}")
endif()
