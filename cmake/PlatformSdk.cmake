# The closed libraries from an SDK: <prefix>/include/<library>/*.h and <prefix>/lib/lib<library>.so.
foreach(library IN ITEMS kvappframework kvwidget dab mcu service gps)
    find_library(${library}_LIBRARY ${library} PATHS "${FACTORYDEBUG_PLATFORM_SDK}/lib"
                 NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    add_library(${library} SHARED IMPORTED)
    set_target_properties(${library} PROPERTIES
        IMPORTED_LOCATION "${${library}_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${FACTORYDEBUG_PLATFORM_SDK}/include")
endforeach()
# What the faces need, as the stand-ins have it, so that both are linked in one order.
target_link_libraries(kvappframework INTERFACE Qt5::Widgets)
target_link_libraries(kvwidget INTERFACE Qt5::Widgets)
target_link_libraries(dab INTERFACE Qt5::Core kvappframework)
target_link_libraries(mcu INTERFACE Qt5::Core)
target_link_libraries(service INTERFACE Qt5::Core kvappframework)
target_link_libraries(gps INTERFACE Qt5::Core)
