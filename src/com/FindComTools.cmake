# Finds what builds and runs the automation server, and sets KXJS_COM_MISSING to the names of what
# is not there. Wine's own programs are preferred to the distribution's wrappers around them, which
# split arguments at blanks.

set(_wine_dirs /usr/lib/wine /usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/wine /usr/lib/wine-development
    /opt/wine-stable/bin
)
set(KXJS_COM_MISSING "")

macro(kx_find_com_tool variable name)
    find_program(${variable} NAMES ${name} ${ARGN} NAMES_PER_DIR HINTS ${_wine_dirs})
    mark_as_advanced(${variable})
    if(NOT ${variable})
        list(APPEND KXJS_COM_MISSING ${name})
    endif()
endmacro()

kx_find_com_tool(KXJS_WIDL widl)
kx_find_com_tool(KXJS_WINEGXX wineg++)
kx_find_com_tool(KXJS_WINEBUILD winebuild)
kx_find_com_tool(KXJS_WINE wine64 wine)
kx_find_com_tool(KXJS_WINESERVER wineserver)
kx_find_com_tool(KXJS_MINGW_GXX x86_64-w64-mingw32-g++)
