# The files that `cmake --install` installs: library, public headers, kxjs with its manual page and
# completion, the Python package, the CMake package KxJsParser and the pkg-config module kxjsparser. No
# file names the prefix, so the result can be moved.
#
# The components: `library` to run applications, `development` to build them, `program` is kxjs,
# `python` the Python package.

include(CMakePackageConfigHelpers)

set(_headers
    KxJs.h
    kxjsparser.h
    c/kxjs_base.h
    c/kxjs_catalogue.h
    c/kxjs_columns.h
    c/kxjs_host.h
    c/kxjs_text.h
    c/kxjs_translator.h
    c/kxjs_variable.h
    convert/Converter.h
    host/KxJsFailure.h
    host/KxJsIsolation.h
    columns/KxJsColumns.h
    host/KxJsParser.h
    host/KxJsVariable.h
    library/Catalogues.h
    library/Export.h
    library/KxJsFunction.h
    library/Prelude.h
    translate/KxJsTranslator.h
)
foreach(header IN LISTS _headers)
    get_filename_component(directory ${header} DIRECTORY)
    install(
        FILES ${PROJECT_SOURCE_DIR}/src/${header}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kxjsparser/${directory}
        COMPONENT development
    )
endforeach()

# The loader finds the system's libnode. The path of another one is stored in the library.
get_filename_component(_v8_directory ${V8_LIBRARY} DIRECTORY)
get_filename_component(_v8_directory ${_v8_directory} REALPATH)
set(_v8_rpath ${_v8_directory})
foreach(directory IN LISTS CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES)
    get_filename_component(directory ${directory} REALPATH)
    if(directory STREQUAL _v8_directory)
        set(_v8_rpath "")
    endif()
endforeach()
set_target_properties(KxJsParser PROPERTIES INSTALL_RPATH "${_v8_rpath}")

install(
    TARGETS KxJsParser
    EXPORT KxJsParserTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
)

# For isolated hosts. The library looks for it there, from where it lies itself.
set_target_properties(kxjs-worker PROPERTIES INSTALL_RPATH "${_v8_rpath}")
install(TARGETS kxjs-worker RUNTIME DESTINATION ${KXJS_WORKER_DIRECTORY} COMPONENT library)

if(KXJS_BUILD_CLI)
    file(RELATIVE_PATH _bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(kxjs PROPERTIES INSTALL_RPATH "$ORIGIN/${_bin_to_lib}")
    install(TARGETS kxjs RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
    install(
        FILES ${PROJECT_SOURCE_DIR}/src/cli/kxjs.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME kxjs
        COMPONENT program
    )
    # Debian's packages hold it compressed.
    if(NOT KXJS_PACKAGES)
        install(
            FILES ${PROJECT_SOURCE_DIR}/docs/man/kxjs.1
            DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
            COMPONENT program
        )
    endif()
endif()

# The same files for every version of Python. Debian's looks below the prefix /usr here; elsewhere
# PYTHONPATH has to name the directory.
set(KXJS_PYTHON_DIRECTORY lib/python3/dist-packages CACHE STRING "Where the Python package goes")
install(
    DIRECTORY ${PROJECT_SOURCE_DIR}/python/kxjsparser
    DESTINATION ${KXJS_PYTHON_DIRECTORY}
    COMPONENT python
    FILES_MATCHING
    PATTERN "*.py"
    PATTERN "py.typed"
    PATTERN "__pycache__" EXCLUDE
)

set(_package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/KxJsParser)
install(
    EXPORT KxJsParserTargets
    NAMESPACE KxJsParser::
    DESTINATION ${_package_directory}
    COMPONENT development
)
configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/KxJsParserConfig.cmake.in
    ${PROJECT_BINARY_DIR}/package/KxJsParserConfig.cmake
    INSTALL_DESTINATION ${_package_directory}
    NO_SET_AND_CHECK_MACRO
)
# Before 1.0 a minor version may change the interface.
write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/package/KxJsParserConfigVersion.cmake COMPATIBILITY SameMinorVersion
)
install(
    FILES ${PROJECT_BINARY_DIR}/package/KxJsParserConfig.cmake
          ${PROJECT_BINARY_DIR}/package/KxJsParserConfigVersion.cmake
    DESTINATION ${_package_directory}
    COMPONENT development
)

set(_pc_directory ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH _pc_to_prefix ${CMAKE_INSTALL_PREFIX}/${_pc_directory} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" _pc_to_prefix "${_pc_to_prefix}")
configure_file(
    ${PROJECT_SOURCE_DIR}/cmake/kxjsparser.pc.in ${PROJECT_BINARY_DIR}/package/kxjsparser.pc @ONLY
)
install(
    FILES ${PROJECT_BINARY_DIR}/package/kxjsparser.pc
    DESTINATION ${_pc_directory}
    COMPONENT development
)
