# Installs the build to WORK and compares the files there with EXPECTED, the plug-in alone.
file(REMOVE_RECURSE "${WORK}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}"
                COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
file(GLOB_RECURSE installed RELATIVE "${WORK}" "${WORK}/*")
if(NOT installed STREQUAL EXPECTED)
    message(FATAL_ERROR "Installed: ${installed}\nExpected: ${EXPECTED}")
endif()
