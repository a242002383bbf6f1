# Programs and libraries, once installed, find the libraries relative to themselves, so that the prefix can be moved.
# What is packaged for /usr is found without.
if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    file(RELATIVE_PATH libraries_from_programs ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set(CMAKE_INSTALL_RPATH $ORIGIN $ORIGIN/${libraries_from_programs})
endif()
# Libraries of others that lie elsewhere, such as OpenSG's, stay where they were found.
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)
