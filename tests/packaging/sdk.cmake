# Makes an SDK of the stand-ins' headers and LIBRARY_FILES in WORK, and builds the plug-in against
# it: no stand-in, simulator or test may be needed for that.
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}/sdk/include" "${WORK}/sdk/lib")
file(GLOB headers RELATIVE "${SOURCE}/platform" "${SOURCE}/platform/*/*.h")
foreach(header IN LISTS headers)
    get_filename_component(folder "${header}" DIRECTORY)
    file(COPY "${SOURCE}/platform/${header}" DESTINATION "${WORK}/sdk/include/${folder}")
endforeach()
file(COPY ${LIBRARY_FILES} DESTINATION "${WORK}/sdk/lib")
# The stand-ins are linked to libraries of their own, which an SDK's are not.
execute_process(
    COMMAND "${CMAKE_COMMAND}" -S "${SOURCE}" -B "${WORK}/build" -G Ninja
            -DCMAKE_BUILD_TYPE=Release -DFACTORYDEBUG_PLATFORM_SDK=${WORK}/sdk
            -DCMAKE_SHARED_LINKER_FLAGS=-Wl,--allow-shlib-undefined
            -DCMAKE_MODULE_LINKER_FLAGS=-Wl,--allow-shlib-undefined
    COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
execute_process(COMMAND "${CMAKE_COMMAND}" --build "${WORK}/build"
                COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${WORK}/build" --prefix "${WORK}/installed"
                COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
file(GLOB_RECURSE plugins "${WORK}/installed/*libfactorydebug.so")
if(NOT plugins)
    message(FATAL_ERROR "No plug-in was installed.")
endif()
