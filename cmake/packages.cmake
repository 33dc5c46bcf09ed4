# The Debian packages, one for each component; scripts/package makes them. `cmake --install` leaves
# out the files that are only in a package.
set(soname_version ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(library_package libkivo${soname_version})

# The first line of the Debian changelog has the version and the package release.
file(STRINGS ${PROJECT_SOURCE_DIR}/packaging/changelog newest_entry LIMIT_COUNT 1)
string(REGEX REPLACE "^kivo \\((.+)-([0-9]+)\\).*" "\\1;\\2" newest_entry "${newest_entry}")
list(GET newest_entry 0 CPACK_KIVO_CHANGELOG_VERSION)
list(GET newest_entry -1 CPACK_DEBIAN_PACKAGE_RELEASE)

set(KIVO_SITE_DIR "" CACHE PATH "The documentation site, for the documentation package")
set(KIVO_ARCHIVE_BUILD_DIR "" CACHE PATH "A build of the archive, for the development package")

function(install_into_package component directory)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "FILES;DIRECTORIES")
  set(destination ${CMAKE_INSTALL_DATAROOTDIR}/doc/${directory})
  install(FILES ${arg_FILES} DESTINATION ${destination}
          COMPONENT ${component} EXCLUDE_FROM_ALL)
  if(arg_DIRECTORIES)
    install(DIRECTORY ${arg_DIRECTORIES} DESTINATION ${destination}
            COMPONENT ${component} EXCLUDE_FROM_ALL
            PATTERN "*.7" EXCLUDE PATTERN "*.dot" EXCLUDE PATTERN docs/site EXCLUDE)
  endif()
endfunction()

set(copyright ${PROJECT_SOURCE_DIR}/packaging/copyright)
install_into_package(kivo_library ${library_package} FILES ${copyright})
install_into_package(kivo_development libkivo-dev FILES ${copyright})
install_into_package(kivo_development libkivo-dev/examples
  FILES ${PROJECT_SOURCE_DIR}/packaging/examples/CMakeLists.txt
  DIRECTORIES ${PROJECT_SOURCE_DIR}/examples/greet ${PROJECT_SOURCE_DIR}/examples/notebook
              ${PROJECT_SOURCE_DIR}/examples/textkit)
install_into_package(kivo_describe kivo-describe FILES ${copyright})
install_into_package(kivo_documentation libkivo-doc
  FILES ${copyright} ${PROJECT_SOURCE_DIR}/README.md
  DIRECTORIES ${PROJECT_SOURCE_DIR}/docs ${KIVO_SITE_DIR})

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_CONTACT "The kivo maintainers <maintainers@kivo.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own summary
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL kivo_library kivo_development kivo_describe kivo_documentation)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE kivo)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Adds the dependencies, the symbols and the compressed texts, which depend on the packaged files.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/complete.cmake)
set(CPACK_KIVO_PACKAGING_DIR ${PROJECT_SOURCE_DIR}/packaging)
set(CPACK_KIVO_LIBRARY ${CMAKE_INSTALL_LIBDIR}/libkivo.so.${soname_version})

# The archive joins the development files of the shared library. The third item of each project is
# the name of a list of components, CPACK_COMPONENTS_<name>.
if(KIVO_ARCHIVE_BUILD_DIR)
  set(CPACK_COMPONENTS_ARCHIVE kivo_development)
  set(CPACK_INSTALL_CMAKE_PROJECTS "${PROJECT_BINARY_DIR};kivo;ALL;/"
      "${KIVO_ARCHIVE_BUILD_DIR};kivo;ARCHIVE;/")
endif()

set(about "kivo parses the command lines of tools: typed options with defaults and
allowed values, positional options, actions, abbreviations, negated forms,
lists, and option files.")

set(CPACK_DEBIAN_KIVO_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_KIVO_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_KIVO_LIBRARY_PACKAGE_MULTIARCH same)
set(CPACK_DEBIAN_KIVO_LIBRARY_DESCRIPTION "command-line parsing for tools (shared library)
${about}

This package holds the library that such tools load.")

set(CPACK_DEBIAN_KIVO_DEVELOPMENT_PACKAGE_NAME libkivo-dev)
set(CPACK_DEBIAN_KIVO_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_KIVO_DEVELOPMENT_PACKAGE_MULTIARCH same)
set(CPACK_DEBIAN_KIVO_DEVELOPMENT_PACKAGE_DEPENDS
    "${library_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_KIVO_DEVELOPMENT_PACKAGE_RECOMMENDS "kivo-describe")
set(CPACK_DEBIAN_KIVO_DEVELOPMENT_PACKAGE_SUGGESTS "libkivo-doc")
set(CPACK_DEBIAN_KIVO_DEVELOPMENT_DESCRIPTION "command-line parsing for tools (development files)
${about}

This package holds what a tool is built with: the headers, the static
library, the files for CMake and pkg-config, and the sources of three example
tools.")

set(CPACK_DEBIAN_KIVO_DESCRIBE_PACKAGE_NAME kivo-describe)
set(CPACK_DEBIAN_KIVO_DESCRIBE_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_KIVO_DESCRIBE_PACKAGE_MULTIARCH foreign)
set(CPACK_DEBIAN_KIVO_DESCRIBE_DESCRIPTION "command-line parsing for tools (manual pages, completion)
${about}

This package holds the program that makes a manual page and completion scripts
of what such a tool says about its command line, for those who build one.")

set(CPACK_DEBIAN_KIVO_DOCUMENTATION_PACKAGE_NAME libkivo-doc)
set(CPACK_DEBIAN_KIVO_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_KIVO_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_KIVO_DOCUMENTATION_PACKAGE_MULTIARCH foreign)
set(CPACK_DEBIAN_KIVO_DOCUMENTATION_DESCRIPTION "command-line parsing for tools (documentation)
${about}

This package holds the documentation site: the guide to the library, its
reference, the changelog, and what users of any tool built with it may type,
which the manual page kivo(7) tells, too.")

include(CPack)
