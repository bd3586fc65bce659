# SPDX-License-Identifier: MIT
# check_case(<name> <expected> [<file> <content>]...): runs the script CHECK on a tree of the given
# files in WORK_DIR. Expected is the text of the complaint, or "" when the tree is good.
function(check_case name expected)
    file(REMOVE_RECURSE "${WORK_DIR}")
    while(ARGN)
        list(POP_FRONT ARGN path content)
        file(WRITE "${WORK_DIR}/${path}" "${content}")
    endwhile()
    execute_process(COMMAND "${CMAKE_COMMAND}" "-DSOURCE_DIR=${WORK_DIR}" -P "${CHECK}"
                    RESULT_VARIABLE result ERROR_VARIABLE complaint)
    if(expected STREQUAL "" AND NOT result EQUAL 0)
        message(SEND_ERROR "${name}: refused a good tree:\n${complaint}")
    elseif(NOT expected STREQUAL "" AND (result EQUAL 0 OR NOT complaint MATCHES "${expected}"))
        message(SEND_ERROR "${name}: no \"${expected}\" (${result}) in:\n${complaint}")
    endif()
endfunction()
