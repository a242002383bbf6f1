# What is installed, in three components: library (needed to run), development (needed to build), applications.
include(CMakePackageConfigHelpers)

# tesk_install_library(NAME INCLUDE_FOLDER): the library, its headers and its place in the package.
function(tesk_install_library name include_folder)
    get_target_property(type tesk_${name} TYPE)
    if(type STREQUAL "INTERFACE_LIBRARY")
        install(TARGETS tesk_${name} EXPORT TeskMeasurement)
    else()
        install(TARGETS tesk_${name} EXPORT TeskMeasurement
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
            FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${include_folder} COMPONENT development
            FILE_SET generated_headers DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${include_folder} COMPONENT development)
    endif()
    set_target_properties(tesk_${name} PROPERTIES EXPORT_NAME ${name})
endfunction()

# A folder of its own: whoever has OpenSG must not find these headers by accident.
tesk_install_library(scenegraph tesk-scenegraph)
tesk_install_library(platform tesk)
tesk_install_library(measurement tesk)

set(TESK_PACKAGE_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/TeskMeasurement)
install(EXPORT TeskMeasurement NAMESPACE tesk:: FILE TeskMeasurementTargets.cmake
    DESTINATION ${TESK_PACKAGE_FOLDER} COMPONENT development)
configure_package_config_file(cmake/TeskMeasurementConfig.cmake.in TeskMeasurementConfig.cmake
    INSTALL_DESTINATION ${TESK_PACKAGE_FOLDER} NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
# Until version 1 every minor version may break what the one before promised.
write_basic_package_version_file(TeskMeasurementConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/TeskMeasurementConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/TeskMeasurementConfigVersion.cmake
    DESTINATION ${TESK_PACKAGE_FOLDER} COMPONENT development)
if(TESK_SCENE_GRAPH STREQUAL "opensg")
    install(FILES cmake/FindOpenSG.cmake DESTINATION ${TESK_PACKAGE_FOLDER} COMPONENT development)
endif()

# Host services are a CMake target, whose flags pkg-config cannot know.
if(TESK_PLATFORM STREQUAL "default")
    file(RELATIVE_PATH includes_from_libraries ${CMAKE_INSTALL_FULL_LIBDIR} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
    if(TESK_SCENE_GRAPH STREQUAL "opensg")
        cmake_path(GET OpenSG_SYSTEM_LIBRARY PARENT_PATH opensg_library_folder)
        # For headers of that age, as FindOpenSG.cmake has it.
        set(scene_graph_cflags "-isystem ${OpenSG_INCLUDE_DIR} -Wno-narrowing -U__DEPRECATED")
        set(scene_graph_libs "-L${opensg_library_folder} -lOSGSystem -lOSGBase")
    else()
        set(scene_graph_cflags "-I\${includedir}/tesk-scenegraph")
        set(scene_graph_libs -ltesk_scenegraph)
    endif()
    configure_file(cmake/tesk-measurement.pc.in tesk-measurement.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tesk-measurement.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endif()

if(TESK_BUILD_APPS)
    install(TARGETS tesk-measure RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT applications)
endif()
