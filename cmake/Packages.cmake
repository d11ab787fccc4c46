# Two Debian packages: the plug-in, and the simulated unit around it. The target "packages" makes them. But for the
# plug-in nothing of them is what ships, so that only who names its component installs it.
set(components plugin simulator)
set(packages factorydebug factorydebug-simulator)
set(package_files "${PROJECT_SOURCE_DIR}/cmake/packages")
set(libraries "${CMAKE_INSTALL_LIBDIR}/factorydebug")
set(of_simulator COMPONENT simulator EXCLUDE_FROM_ALL)

# The programs find their libraries from where they are, wherever the package is unpacked.
set(programs headunit headunit-ctl headunit-panel)
set(program_libraries hardware unitlink kvappframework kvwidget dab mcu service gps)
set_target_properties(${programs} PROPERTIES INSTALL_RPATH "$ORIGIN/../${libraries}")
set_target_properties(${program_libraries} PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS ${programs} RUNTIME DESTINATION bin ${of_simulator})
install(TARGETS ${program_libraries} LIBRARY DESTINATION "${libraries}" ${of_simulator})

# Scripts lie as in the sources, beside their modules, with links to them where programs are looked for.
set(scripts simulator/sweep/headunit-sweep tools/make-gps-package tools/make-update-package)
set(script_modules simulator/sweep/calls.py simulator/sweep/live.py simulator/sweep/report.py simulator/sweep/session.py simulator/sweep/sweeps.py tools/packagefile.py)
foreach(file IN LISTS scripts script_modules)
    get_filename_component(folder "${file}" DIRECTORY)
    get_filename_component(name "${file}" NAME)
    if(file IN_LIST scripts)
        install(PROGRAMS "${file}" DESTINATION "share/factorydebug/${folder}" ${of_simulator})
        set(link "${CMAKE_CURRENT_BINARY_DIR}/packaging/links/${name}")
        factory_link("../share/factorydebug/${file}" "${link}")
        install(FILES "${link}" DESTINATION bin ${of_simulator})
        list(APPEND programs "${name}")
    else()
        install(FILES "${file}" DESTINATION "share/factorydebug/${folder}" ${of_simulator})
    endif()
endforeach()

# What bash completes, what a desktop shows, and a script to begin with.
set(completions share/bash-completion/completions)
install(FILES simulator/console/headunit-ctl.bash DESTINATION ${completions} RENAME headunit-ctl ${of_simulator})
foreach(program IN LISTS programs)
    if(NOT program STREQUAL "headunit-ctl")
        install(FILES "${package_files}/headunit.bash" DESTINATION ${completions} RENAME ${program} ${of_simulator})
    endif()
endforeach()
install(FILES "${package_files}/headunit.desktop" "${package_files}/headunit-panel.desktop"
        DESTINATION share/applications ${of_simulator})
install(FILES "${package_files}/headunit.svg" DESTINATION share/icons/hicolor/scalable/apps ${of_simulator})
install(FILES tests/scenarios/tour.txt DESTINATION share/doc/factorydebug-simulator/examples ${of_simulator})

find_program(HELP2MAN help2man)
find_program(PARSE_CHANGELOG dpkg-parsechangelog)
if(NOT HELP2MAN OR NOT PARSE_CHANGELOG)
    message(STATUS "No packages: the packages help2man and dpkg-dev make them")
    return()
endif()

# What is made has the date of the newest entry, whenever it is made.
execute_process(COMMAND "${PARSE_CHANGELOG}" -l "${package_files}/changelog" -S Timestamp
                OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${PARSE_CHANGELOG}" -l "${package_files}/changelog" -S Version
                OUTPUT_VARIABLE package_version OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
if(NOT package_version MATCHES "^${PROJECT_VERSION}-([0-9]+)$")
    message(FATAL_ERROR "${package_files}/changelog tells of ${package_version}, but this is ${PROJECT_VERSION}")
endif()
set(package_release "${CMAKE_MATCH_1}")
set(dated "${CMAKE_COMMAND}" -E env "SOURCE_DATE_EPOCH=${date}")

set(made "${CMAKE_CURRENT_BINARY_DIR}/packaging")
set(made_files)
# factory_compress(<file> <compressed>)
function(factory_compress file compressed)
    add_custom_command(OUTPUT "${compressed}"
        COMMAND gzip -9 --no-name --stdout "${file}" > "${compressed}" DEPENDS "${file}" VERBATIM)
    set(made_files ${made_files} "${compressed}" PARENT_SCOPE)
endfunction()

# The manual pages: what the programs say of themselves.
set(summary_headunit "simulated head unit that runs the factory-debug screen")
set(summary_headunit-ctl "console of a simulated head unit")
set(summary_headunit-panel "shows and plays the world around a simulated head unit")
set(summary_headunit-sweep "runs sessions of a simulated head unit with faults")
set(summary_make-gps-package "makes package files for a head unit's GPS receiver")
set(summary_make-update-package "makes user update packages for a head unit")
set(folders "${CMAKE_CURRENT_BINARY_DIR}/simulator:${CMAKE_CURRENT_BINARY_DIR}/panel:${PROJECT_SOURCE_DIR}/tools")
foreach(program IN LISTS programs)
    set(others ${programs})
    list(REMOVE_ITEM others ${program})
    set(page "${made}/${program}.1")
    set(sources ${scripts} ${script_modules})
    if(TARGET ${program})
        set(sources ${program})
    endif()
    add_custom_command(OUTPUT "${page}"
        COMMAND ${dated} "${package_files}/page" "${folders}" ${program} "${summary_${program}}" ${PROJECT_VERSION}
                "${page}" ${others}
        DEPENDS "${package_files}/page" ${sources} VERBATIM)
    factory_compress("${page}" "${page}.gz")
    install(FILES "${page}.gz" DESTINATION share/man/man1 ${of_simulator})
endforeach()

# What Debian asks of each package.
foreach(component package IN ZIP_LISTS components packages)
    install(FILES "${package_files}/copyright" "${made}/changelog.gz" "${made}/changelog.Debian.gz"
            DESTINATION share/doc/${package} COMPONENT ${component} EXCLUDE_FROM_ALL)
    install(FILES "${package_files}/${package}.overrides" DESTINATION share/lintian/overrides RENAME ${package}
            COMPONENT ${component} EXCLUDE_FROM_ALL)
endforeach()
factory_compress("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${made}/changelog.gz")
factory_compress("${package_files}/changelog" "${made}/changelog.Debian.gz")
add_custom_target(package_files ALL DEPENDS ${made_files})

set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL ${components})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_CONTACT "The Factory Debug authors <authors@factory-debug.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "${package_release}")
set(CPACK_DEBIAN_PACKAGE_SOURCE factorydebug)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The plug-in asks for libraries that no package has: on the unit they are the framework's.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS)
foreach(library IN LISTS program_libraries)
    get_target_property(folder ${library} BINARY_DIR)
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${folder}")
endforeach()
set(CPACK_DEBIAN_PLUGIN_PACKAGE_NAME factorydebug)
set(CPACK_DEBIAN_PLUGIN_PACKAGE_SECTION embedded)
set(CPACK_DEBIAN_PLUGIN_DESCRIPTION "factory-debug screen of a head unit
The screen on which a technician tests and adjusts the hardware of an
in-vehicle head unit, one piece on each page: USB ports, panel, key light,
light sensor, GPS receiver, DAB tuner and more.
.
It is a plug-in of the unit's application framework, and finds the
framework's libraries in the process that loads it.")
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_NAME factorydebug-simulator)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_DEPENDS
    "factorydebug (= ${package_version}), fonts-liberation, python3, xz-utils")
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_SUGGESTS bash-completion)
set(CPACK_DEBIAN_SIMULATOR_DESCRIPTION "simulated head unit for the factory-debug screen
A head unit of 800 x 480 pixels in a window, with simulated storage,
receiver, tuner, lights, USB ports and memory behind it. It runs the
factory-debug screen as the real unit does, and can be used by hand, by
commands and scripts, and with faults.
.
\"headunit --self-test\" tells whether all of it works.")
include(CPack)

add_custom_target(packages
    COMMAND ${dated} "${CMAKE_CPACK_COMMAND}" --config "${CMAKE_BINARY_DIR}/CPackConfig.cmake" -B "${made}"
            > "${made}/cpack.log"
    DEPENDS factorydebug headunit headunit-ctl headunit-panel package_files
    VERBATIM)
