# What the platform's libraries take by value and what by reference decides whether the plug-in can
# be loaded with them: PLUGIN must ask for every symbol in the list CALLS. NM is the binutils' nm.
execute_process(COMMAND "${NM}" -DC --undefined-only "${PLUGIN}" OUTPUT_VARIABLE symbols
                COMMAND_ERROR_IS_FATAL ANY)
file(STRINGS "${CALLS}" calls)
foreach(call IN LISTS calls)
    string(FIND "${symbols}" " U ${call}\n" place)
    if(place EQUAL -1)
        message(SEND_ERROR "The plug-in does not ask for ${call}")
    endif()
endforeach()
