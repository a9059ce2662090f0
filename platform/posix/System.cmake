# The bodies of the calls and the class library: one shared library for host, plug-in and component, as the system's
# own libraries are on Windows.
set(platform_type SHARED)
set(platform_libraries PRIVATE ${CMAKE_DL_LIBS})
