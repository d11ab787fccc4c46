# src/ can include each header of the platform's faces and none of what stands behind them: the compiler
# CXX, with the folders that a file of src/ is compiled with in BUILD, is asked for every header of SOURCE.
# WORK is a folder for the question.
file(GLOB faces RELATIVE "${SOURCE}" "${SOURCE}/platform/*/*.h")
list(FILTER faces EXCLUDE REGEX "^platform/unitlink/")
set(others)
foreach(folder IN ITEMS gate hardware simulator platform/unitlink platform/*/sim)
    file(GLOB_RECURSE headers RELATIVE "${SOURCE}" "${SOURCE}/${folder}/*.h")
    if(NOT headers)
        message(FATAL_ERROR "There is no header in ${folder}")
    endif()
    list(APPEND others ${headers})
endforeach()
list(TRANSFORM others REPLACE "^platform/" "")
list(TRANSFORM faces REPLACE "^platform/" "")
list(TRANSFORM others REPLACE ".+" "#if __has_include(\"\\0\")\n#error \\0 can be included\n#endif\n")
list(TRANSFORM faces REPLACE ".+" "#if !__has_include(\"\\0\")\n#error \\0 cannot be included\n#endif\n")
string(JOIN "" questions ${others} ${faces})
file(WRITE "${WORK}/visible.cpp" "${questions}")

file(READ "${BUILD}/compile_commands.json" commands)
string(REGEX MATCH "\"command\": \"([^\n]*)\",\n *\"file\": \"[^\"]*/src/gps/gpscomage.cpp\"" entry "${commands}")
string(REGEX MATCHALL "-(I|isystem )[^ ]+" folders "${CMAKE_MATCH_1}")
string(REPLACE "-isystem " "-I" folders "${folders}")
execute_process(COMMAND "${CXX}" -fsyntax-only ${folders} "${WORK}/visible.cpp"
                COMMAND_ERROR_IS_FATAL ANY)
