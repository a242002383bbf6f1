# Debian packages, one for each component of what is installed below /usr; scripts/package makes them.
find_program(TESK_GZIP gzip REQUIRED)
set(package_maintainer "Tesk Measurement developers <developers@tesk-measurement.invalid>")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tesk-measurement)
set(CPACK_PACKAGE_CONTACT ${package_maintainer})
# Each package has a summary of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_OUTPUT_FILE_PREFIX packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL library development applications)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS library)
set(CPACK_COMPONENT_APPLICATIONS_DEPENDS library)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_APPLICATIONS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${CMAKE_CURRENT_BINARY_DIR}/scenegraph ${CMAKE_CURRENT_BINARY_DIR}/platform ${CMAKE_CURRENT_BINARY_DIR}/measurement)
# Pictures need a driver.
set(CPACK_DEBIAN_APPLICATIONS_PACKAGE_RECOMMENDS libgl1-mesa-dri)
# For devices to read from and write to.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS qtbase5-dev)

# tesk_debian_package(COMPONENT NAME SECTION DESCRIPTION): the description's first line is the summary.
macro(tesk_debian_package component name section description)
    string(TOUPPER ${component} key)
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section})
    set(CPACK_COMPONENT_${key}_DESCRIPTION "${description}")
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
endmacro()

set(library_description
"Distances between points, between a point and an object and between two
objects, circles through three points, the gap between objects along a track
and the distances of a line from an object, with their visualisations and XML
files.")
tesk_debian_package(library libtesk-measurement${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR} libs
"measurement in OpenSG 1.x scenes - shared libraries
${library_description}

This package holds the library, the default services for it and the scene
graph that it was built with.")
tesk_debian_package(development libtesk-measurement-dev libdevel
"measurement in OpenSG 1.x scenes - development files
${library_description}

This package holds headers and what CMake and pkg-config need.")
tesk_debian_package(applications tesk-measurement-tools science
"measurement of parts in mesh files
The command tesk-measure measures distances, circles and gaps between parts in
STL, OBJ, PLY, OFF, glTF, 3MF and DAE files, prints them as text or JSON,
checks them against limits and draws them as pictures.")

# What changed is in CHANGELOG.md; packages have to have one of their own.
string(TIMESTAMP package_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(CONFIGURE OUTPUT changelog.Debian @ONLY CONTENT
"@CPACK_PACKAGE_NAME@ (@PROJECT_VERSION@-@CPACK_DEBIAN_PACKAGE_RELEASE@) unstable; urgency=medium

  * Version @PROJECT_VERSION@.

 -- @package_maintainer@  @package_date@
")
execute_process(COMMAND ${TESK_GZIP} -9nf changelog.Debian
    WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR} COMMAND_ERROR_IS_FATAL ANY)

file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_BINARY_DIR}/triggers)

include(CPack)
