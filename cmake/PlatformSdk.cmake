# The closed libraries from an SDK: <prefix>/include/<library>/*.h and <prefix>/lib/lib<library>.so.
foreach(library IN ITEMS kvappframework kvwidget dab mcu service gps)
    find_library(${library}_LIBRARY ${library} PATHS "${FACTORYDEBUG_PLATFORM_SDK}/lib"
                 NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    add_library(${library} SHARED IMPORTED)
    set_target_properties(${library} PROPERTIES
        IMPORTED_LOCATION "${${library}_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${FACTORYDEBUG_PLATFORM_SDK}/include"
        INTERFACE_LINK_LIBRARIES Qt5::Widgets)
endforeach()
