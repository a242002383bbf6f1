# Finds an installed OpenSG 1.x below OpenSG_ROOT: headers <OpenSG/OSGNode.h>, libraries OSGBase and OSGSystem.
#
# Defines the targets OpenSG::Base and OpenSG::System, which needs it, and OpenSG_VERSION.
find_path(OpenSG_INCLUDE_DIR OpenSG/OSGNode.h)
# Below lib or, where optimised and debugging libraries are installed together, lib/opt.
find_library(OpenSG_BASE_LIBRARY OSGBase PATH_SUFFIXES opt)
find_library(OpenSG_SYSTEM_LIBRARY OSGSystem PATH_SUFFIXES opt)
mark_as_advanced(OpenSG_INCLUDE_DIR OpenSG_BASE_LIBRARY OpenSG_SYSTEM_LIBRARY)

if(EXISTS ${OpenSG_INCLUDE_DIR}/OpenSG/OSGConfig.h)
    file(STRINGS ${OpenSG_INCLUDE_DIR}/OpenSG/OSGConfig.h version_lines
        REGEX "^ *# *define +OSG_(MAJOR|MINOR|RELEASE)_VERSION +[0-9]+")
    set(version_numbers)
    foreach(part MAJOR MINOR RELEASE)
        string(REGEX MATCH "OSG_${part}_VERSION +([0-9]+)" match "${version_lines}")
        list(APPEND version_numbers ${CMAKE_MATCH_1})
    endforeach()
    list(JOIN version_numbers . OpenSG_VERSION)
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(OpenSG
    REQUIRED_VARS OpenSG_SYSTEM_LIBRARY OpenSG_BASE_LIBRARY OpenSG_INCLUDE_DIR
    VERSION_VAR OpenSG_VERSION
    REASON_FAILURE_MESSAGE "Set OpenSG_ROOT to the folder that holds its include and lib folders.")

if(OpenSG_FOUND AND NOT TARGET OpenSG::System)
    add_library(OpenSG::Base UNKNOWN IMPORTED)
    set_target_properties(OpenSG::Base PROPERTIES
        IMPORTED_LOCATION ${OpenSG_BASE_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${OpenSG_INCLUDE_DIR})
    # The headers are older than C++11: a template argument of theirs narrows, which is an error even in headers of
    # others, and they include the hash tables that warn about themselves.
    target_compile_options(OpenSG::Base INTERFACE
        $<$<COMPILE_LANG_AND_ID:CXX,GNU,Clang,AppleClang>:-Wno-narrowing;-U__DEPRECATED>)
    add_library(OpenSG::System UNKNOWN IMPORTED)
    set_target_properties(OpenSG::System PROPERTIES
        IMPORTED_LOCATION ${OpenSG_SYSTEM_LIBRARY}
        INTERFACE_LINK_LIBRARIES OpenSG::Base)
endif()
