# Finds V8 as the distribution's shared libnode.
#
#   V8_ROOT   a hint: the directory that holds include/ and lib/. Without it, the copy that
#             scripts/setup unpacks under build/v8 is used where there is one.
#
# Defines the target V8::V8, or ends the configuration. Headers come from the directory of the library
# only: another vendor's Node.js may have put the headers of another V8 on the default path.

set(_v8_hints "")
if(V8_ROOT)
    list(APPEND _v8_hints ${V8_ROOT})
endif()
if(DEFINED ENV{V8_ROOT})
    list(APPEND _v8_hints $ENV{V8_ROOT})
endif()
list(APPEND _v8_hints ${CMAKE_CURRENT_LIST_DIR}/../build/v8/usr)

# A new hint starts a new search.
if(DEFINED V8_SEARCHED AND NOT V8_SEARCHED STREQUAL _v8_hints)
    unset(V8_LIBRARY CACHE)
    unset(V8_INCLUDE_DIR CACHE)
endif()
set(V8_SEARCHED ${_v8_hints} CACHE INTERNAL "The hints that V8 was last looked for with")

find_library(
    V8_LIBRARY
    NAMES node
    HINTS ${_v8_hints}
    PATH_SUFFIXES lib lib/${CMAKE_LIBRARY_ARCHITECTURE}
)

if(V8_LIBRARY)
    get_filename_component(_v8_prefix ${V8_LIBRARY} DIRECTORY)
    while(NOT EXISTS ${_v8_prefix}/include AND NOT _v8_prefix STREQUAL "/")
        get_filename_component(_v8_prefix ${_v8_prefix} DIRECTORY)
    endwhile()
    find_path(
        V8_INCLUDE_DIR v8.h
        PATHS ${_v8_prefix}/include
        PATH_SUFFIXES nodejs/deps/v8/include node
        NO_DEFAULT_PATH
    )
endif()

if(V8_INCLUDE_DIR)
    file(STRINGS ${V8_INCLUDE_DIR}/v8-version.h _v8_version REGEX "define V8_(MAJOR|MINOR)_VERSION")
    string(REGEX REPLACE ".*MAJOR_VERSION ([0-9]+).*MINOR_VERSION ([0-9]+).*" "\\1.\\2" V8_VERSION
                         "${_v8_version}"
    )
endif()

set(_v8_problem "")
if(NOT V8_LIBRARY)
    set(_v8_problem "V8's library, libnode, is not installed")
elseif(NOT V8_INCLUDE_DIR)
    set(_v8_problem "V8's headers are missing beside ${V8_LIBRARY}")
elseif(V8_VERSION VERSION_LESS 10.2)
    set(_v8_problem "V8 ${V8_VERSION} (${V8_LIBRARY}) is older than 10.2")
endif()
if(_v8_problem)
    message(FATAL_ERROR "${_v8_problem}: install libnode-dev, run scripts/setup, or pass \
-DV8_ROOT=PREFIX of an installation with headers."
    )
endif()
set(V8_FOUND TRUE)
message(STATUS "V8 ${V8_VERSION}: ${V8_LIBRARY}")
mark_as_advanced(V8_LIBRARY V8_INCLUDE_DIR)

if(NOT TARGET V8::V8)
    add_library(V8::V8 SHARED IMPORTED)
    set_target_properties(
        V8::V8 PROPERTIES IMPORTED_LOCATION ${V8_LIBRARY} INTERFACE_INCLUDE_DIRECTORIES
                                                         ${V8_INCLUDE_DIR}
    )
endif()
