# SPDX-License-Identifier: MIT
# Installs the build in BINARY_DIR into an empty PREFIX.
file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BINARY_DIR}" --prefix "${PREFIX}"
                COMMAND_ERROR_IS_FATAL ANY)
