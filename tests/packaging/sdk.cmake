# Makes an SDK of the faces of LIBRARIES and of LIBRARY_FILES in WORK, and builds a copy of the plug-in's
# sources against it: no stand-in, simulator or test may be needed for that, or be within reach, and what
# comes of it is byte for byte the plug-in of this build, without a path of either.
# Objects of the last run stay: copies have the times of their files, so that what has changed is built.
file(REMOVE_RECURSE "${WORK}/sdk" "${WORK}/source" "${WORK}/installed")
file(MAKE_DIRECTORY "${WORK}/sdk/include" "${WORK}/sdk/lib" "${WORK}/source")
foreach(library IN LISTS LIBRARIES ITEMS kvglobal)
    file(GLOB faces "${SOURCE}/platform/${library}/*.h")
    file(COPY ${faces} DESTINATION "${WORK}/sdk/include/${library}")
endforeach()
file(COPY ${LIBRARY_FILES} DESTINATION "${WORK}/sdk/lib")
file(COPY "${SOURCE}/CMakeLists.txt" "${SOURCE}/cmake" "${SOURCE}/src" DESTINATION "${WORK}/source")
# Reading Qt's headers takes half of the compilation. That a source includes what it needs is told by the build itself.
set(headers "<QDebug> <QPixmap> <QSharedPointer> <QVariant> <QWidget>")
file(WRITE "${WORK}/precompile.cmake"
     "cmake_language(DEFER CALL target_precompile_headers factorydebug_objects PRIVATE ${headers})\n")
# The stand-ins are linked to libraries of their own, which an SDK's are not.
execute_process(
    COMMAND "${CMAKE_COMMAND}" -S "${WORK}/source" -B "${WORK}/build" -G Ninja
            -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DFACTORYDEBUG_PLATFORM_SDK=${WORK}/sdk
            "-DCMAKE_PROJECT_INCLUDE=${WORK}/precompile.cmake"
            "-DCMAKE_CXX_FLAGS_RELEASE=${RELEASE_FLAGS}"
            "-DCMAKE_MODULE_LINKER_FLAGS=${LINKER_FLAGS} -Wl,--allow-shlib-undefined"
    COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
execute_process(COMMAND "${CMAKE_COMMAND}" --build "${WORK}/build"
                COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${WORK}/build" --prefix "${WORK}/installed"
                COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
execute_process(
    COMMAND "${CMAKE_COMMAND}" -DSOURCE=${SOURCE} -DBUILD=${WORK}/build -DWORK=${WORK} -DCXX=${CXX}
            -P "${CMAKE_CURRENT_LIST_DIR}/visible.cmake"
    COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE installed "${WORK}/installed/*libfactorydebug.so")
list(LENGTH installed count)
if(NOT count EQUAL 1)
    message(FATAL_ERROR "Not one plug-in was installed: ${installed}")
endif()
execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${installed}" "${PLUGIN}"
                RESULT_VARIABLE different)
if(different)
    message(FATAL_ERROR "The builds in two folders differ: ${installed} ${PLUGIN}")
endif()
file(STRINGS "${installed}" texts)
foreach(folder IN ITEMS "${SOURCE}" "${BUILD}" "${WORK}")
    string(FIND "${texts}" "${folder}" place)
    if(NOT place EQUAL -1)
        message(FATAL_ERROR "The plug-in names a folder of its build: ${folder}")
    endif()
endforeach()
