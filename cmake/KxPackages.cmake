# Debian packages of the four components that KxInstall.cmake installs. scripts/package makes them,
# with the preset `deb`.

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library development program python)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/build/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE
)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Version and maintainer are those of the changelog's first entry, as in any Debian package.
set(_changelog ${PROJECT_SOURCE_DIR}/packaging/changelog)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${_changelog})
file(STRINGS ${_changelog} _entry LIMIT_COUNT 1 REGEX "^kxjsparser ")
string(REGEX REPLACE "^.*\\((.*)-(.*)\\).*$" "\\1;\\2" _entry "${_entry}")
list(GET _entry 0 CPACK_PACKAGE_VERSION)
list(GET _entry 1 CPACK_DEBIAN_PACKAGE_RELEASE)
if(NOT CPACK_PACKAGE_VERSION STREQUAL PROJECT_VERSION)
    message(FATAL_ERROR "packaging/changelog does not begin with version ${PROJECT_VERSION}")
endif()
file(STRINGS ${_changelog} _maintainer LIMIT_COUNT 1 REGEX "^ -- ")
string(REGEX REPLACE "^ -- (.*>).*$" "\\1" CPACK_DEBIAN_PACKAGE_MAINTAINER "${_maintainer}")
set(CPACK_PACKAGE_CONTACT "${CPACK_DEBIAN_PACKAGE_MAINTAINER}")
set(_exactly "(= ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

set(KXJS_LIBRARY_PACKAGE libkxjsparser${PROJECT_VERSION_MAJOR})
set(_packages ${KXJS_LIBRARY_PACKAGE} libkxjsparser-dev kxjs python3-kxjsparser)

set(_control ${PROJECT_BINARY_DIR}/packaging)

# A description: its first line is the summary, unless CPack has one for all packages, which it takes
# from the project.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(_setting
    "KxJsParser evaluates the formulas that users of an application write, in
an older upper-case language or in JavaScript. It rewrites the former into
the latter, binds the application's variables, and runs the result on the
V8 engine, with limits of time and memory."
)

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${KXJS_LIBRARY_PACKAGE})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION
    "formula evaluation on embedded V8 (shared library)
${_setting}

This package holds the library that applications load."
)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkxjsparser-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${KXJS_LIBRARY_PACKAGE} ${_exactly}")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "formula evaluation on embedded V8 (development files)
${_setting}

This package holds the headers for C++ and C, and what CMake and
pkg-config need to find the library. Applications need no headers of V8."
)

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME kxjs)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "${KXJS_LIBRARY_PACKAGE} ${_exactly}")
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION
    "formula evaluation on the command line
${_setting}

This package holds kxjs, which evaluates and converts formulas, lists the
variables that they need, and explains the built-in functions."
)

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-kxjsparser)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "python3:any (>= 3.9), ${KXJS_LIBRARY_PACKAGE} ${_exactly}")
set(CPACK_DEBIAN_PYTHON_PACKAGE_RECOMMENDS "python3-numpy, python3-pandas")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-dask, python3-distributed")
# The scripts that Debian's own packages of Python modules have.
foreach(_script IN ITEMS postinst prerm)
    configure_file(
        ${PROJECT_SOURCE_DIR}/packaging/python3-${_script} ${_control}/python/${_script} COPYONLY
    )
    list(APPEND CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA ${_control}/python/${_script})
endforeach()
set(CPACK_COMPONENT_PYTHON_DESCRIPTION
    "formula evaluation on embedded V8 (Python 3)
${_setting}

This package holds the Python module kxjsparser. It evaluates formulas over
arrays of NumPy, frames of pandas, and frames of Dask too."
)

# dpkg-shlibdeps asks for the packages of the shared libraries that the files need. It finds
# V8 in an unpacked package by the control files of the package, which scripts/setup keeps beside
# it; kxjs's dependency on the library is stated above.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src ${_v8_rpath})

# What other packages have to depend on when they use the library: before 1.0, a minor version may
# change the interface.
if(PROJECT_VERSION_MAJOR EQUAL 0)
    math(EXPR _next "${PROJECT_VERSION_MINOR} + 1")
    set(KXJS_NEXT_INTERFACE 0.${_next})
else()
    math(EXPR KXJS_NEXT_INTERFACE "${PROJECT_VERSION_MAJOR} + 1")
endif()
configure_file(${PROJECT_SOURCE_DIR}/packaging/shlibs.in ${_control}/shlibs @ONLY)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA
    ${_control}/shlibs ${PROJECT_SOURCE_DIR}/packaging/triggers
)

# kx_compressed(FILE NAME): FILE, compressed as packages hold their texts; its path goes into NAME.
find_program(GZIP gzip REQUIRED)
function(kx_compressed file name)
    get_filename_component(base ${file} NAME)
    set(output ${_control}/${base}.gz)
    add_custom_command(
        OUTPUT ${output}
        COMMAND ${GZIP} -9nc ${file} > ${output}
        DEPENDS ${file}
        VERBATIM
    )
    set(${name} ${output} PARENT_SCOPE)
endfunction()
kx_compressed(${_changelog} _debian_changelog)
kx_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md _upstream_changelog)
kx_compressed(${PROJECT_SOURCE_DIR}/docs/man/kxjs.1 _man_page)
add_custom_target(
    package_texts ALL DEPENDS ${_debian_changelog} ${_upstream_changelog} ${_man_page}
)

install(FILES ${_man_page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
foreach(component package IN ZIP_LISTS CPACK_COMPONENTS_ALL _packages)
    set(_doc ${CMAKE_INSTALL_DATADIR}/doc/${package})
    install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright DESTINATION ${_doc}
            COMPONENT ${component}
    )
    install(FILES ${_debian_changelog} DESTINATION ${_doc} COMPONENT ${component}
            RENAME changelog.Debian.gz
    )
    install(FILES ${_upstream_changelog} DESTINATION ${_doc} COMPONENT ${component}
            RENAME changelog.gz
    )
endforeach()

include(CPack)
