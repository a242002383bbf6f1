include(GenerateExportHeader)

# tesk_add_library(NAME EXPORT_HEADER <path below the generated include folder> EXPORT_MACRO <macro>)
#
# A shared library tesk_NAME, alias tesk::NAME, with hidden visibility and a generated export header. Its folders
# add their files with target_sources().
function(tesk_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "EXPORT_HEADER;EXPORT_MACRO" "")
    set(target tesk_${name})
    add_library(${target} SHARED)
    add_library(tesk::${name} ALIAS ${target})
    set(generated ${CMAKE_CURRENT_BINARY_DIR}/include)
    generate_export_header(${target}
        EXPORT_FILE_NAME ${generated}/${arg_EXPORT_HEADER}
        EXPORT_MACRO_NAME ${arg_EXPORT_MACRO})
    target_sources(${target} PUBLIC FILE_SET generated_headers TYPE HEADERS BASE_DIRS ${generated}
        FILES ${generated}/${arg_EXPORT_HEADER})
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:tesk_build_options>)
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${name}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        VERIFY_INTERFACE_HEADER_SETS ON)
endfunction()
