# The modules of the source tree. Each is compiled once, as an object library. Only modules that link
# V8 find V8's headers. The test structure.modules checks which modules include which.

add_library(kx_options INTERFACE)
target_compile_features(kx_options INTERFACE cxx_std_20)
target_compile_options(
    kx_options INTERFACE $<$<COMPILE_LANG_AND_ID:CXX,GNU,Clang>:-Wall -Wextra -Wpedantic -Werror>
)
# GCC 12 takes `"literal" + string` for an overlapping copy (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(kx_options INTERFACE -Wno-restrict)
endif()

# kx_module(NAME SOURCES file... [USES module-or-target...])
function(kx_module name)
    cmake_parse_arguments(MODULE "" "" "SOURCES;USES" ${ARGN})
    add_library(kx_${name} OBJECT ${MODULE_SOURCES})
    set_target_properties(kx_${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_include_directories(
        kx_${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>
    )
    target_link_libraries(kx_${name} PRIVATE kx_options ${MODULE_USES})
endfunction()
