# The target example::services, on the scene graph of the measurement library.
include(CMakeFindDependencyMacro)
# The library itself, when it looks for its host's services, has the scene graph already.
if(NOT TARGET tesk::scenegraph)
    find_dependency(TeskMeasurement)
endif()
include(${CMAKE_CURRENT_LIST_DIR}/ExampleServicesTargets.cmake)
