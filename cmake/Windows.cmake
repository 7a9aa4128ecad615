# What every Windows binary of the project shares: the API level, the static runtime, the resource compiler.
enable_language(RC)
add_compile_definitions(UNICODE _UNICODE WINVER=0x0A00 _WIN32_WINNT=0x0A00 NOMINMAX STRICT WIN32_LEAN_AND_MEAN)
add_link_options(-static -static-libgcc -static-libstdc++)
