# SPDX-License-Identifier: MIT
# The launcher of the window tests hands the exit code on, cleans up and says what it misses.

function(expect expected pattern)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL expected OR NOT output MATCHES "${pattern}")
        message(SEND_ERROR "${ARGN}\nended with ${result} for ${expected}, and said for \"${pattern}\":\n${output}")
    endif()
endfunction()

expect(7 "^:[0-9]+ xcb\n$" "${LAUNCHER}" sh -c "echo $DISPLAY $QT_QPA_PLATFORM && exit 7")
expect(69 "Xvfb is not installed" "${CMAKE_COMMAND}" -E env PATH=/nowhere "${LAUNCHER}" true)
