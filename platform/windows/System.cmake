# The calls are the system's own; the class library is part of each module.
set(platform_type STATIC)
set(platform_libraries PUBLIC ole32 oleaut32 uuid advapi32)
