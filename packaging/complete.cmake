# Runs after CPack has put the files of each package into a separate folder. Adds what depends on
# these files: the dependencies and the symbols of the library, and the compressed texts.
cmake_minimum_required(VERSION 3.25)

set(control_dir ${CPACK_TEMPORARY_DIRECTORY}/control)
set(full_version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
set(library_package ${CPACK_DEBIAN_KIVO_LIBRARY_PACKAGE_NAME})
set(library ${CPACK_TEMPORARY_DIRECTORY}/kivo_library/usr/${CPACK_KIVO_LIBRARY})

if(NOT CPACK_KIVO_CHANGELOG_VERSION STREQUAL CPACK_PACKAGE_VERSION)
  message(FATAL_ERROR "packaging/changelog begins with ${CPACK_KIVO_CHANGELOG_VERSION}, "
                      "this is version ${CPACK_PACKAGE_VERSION}")
endif()

# dpkg-shlibdeps must run in a Debian source tree. It finds the library, and later its symbols, in
# the tree of the library's package.
file(WRITE ${control_dir}/debian/control
     "Source: kivo\n\nPackage: ${library_package}\nArchitecture: any\n")
set(shown ${control_dir}/debian/${library_package})
file(MAKE_DIRECTORY ${shown}/DEBIAN)
get_filename_component(library_dir ${CPACK_KIVO_LIBRARY} DIRECTORY)
file(COPY ${library} DESTINATION ${shown}/usr/${library_dir} FOLLOW_SYMLINK_CHAIN)

function(find_dependencies program variable)
  execute_process(COMMAND dpkg-shlibdeps -O -S${shown} -e${program}
                  WORKING_DIRECTORY ${control_dir}
                  OUTPUT_VARIABLE dependencies OUTPUT_STRIP_TRAILING_WHITESPACE
                  COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "^shlibs:Depends=" "" dependencies "${dependencies}")
  set(${variable} "${dependencies}" PARENT_SCOPE)
endfunction()
find_dependencies(${shown}/usr/${CPACK_KIVO_LIBRARY} CPACK_DEBIAN_KIVO_LIBRARY_PACKAGE_DEPENDS)

# dpkg-gensymbols -c4 fails on any difference from the promised symbols.
execute_process(COMMAND dpkg-gensymbols -c4 -p${library_package} -v${full_version} -e${library}
                        -I${CPACK_KIVO_PACKAGING_DIR}/${library_package}.symbols
                        -O${control_dir}/symbols
                WORKING_DIRECTORY ${control_dir}
                COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE ".*[.]so[.]" "" soname_version ${library})
file(WRITE ${control_dir}/shlibs
     "libkivo ${soname_version} ${library_package} (>= ${CPACK_PACKAGE_VERSION})\n")
set(CPACK_DEBIAN_KIVO_LIBRARY_PACKAGE_CONTROL_EXTRA
    ${control_dir}/symbols ${control_dir}/shlibs ${CPACK_KIVO_PACKAGING_DIR}/triggers)

file(COPY ${control_dir}/symbols ${control_dir}/shlibs DESTINATION ${shown}/DEBIAN)
set(describe_bin ${control_dir}/debian/kivo-describe/usr/bin)
file(COPY ${CPACK_TEMPORARY_DIRECTORY}/kivo_describe/usr/bin/kivo-describe
     DESTINATION ${describe_bin})
find_dependencies(${describe_bin}/kivo-describe CPACK_DEBIAN_KIVO_DESCRIBE_PACKAGE_DEPENDS)

# gzip -n leaves out the name and the time, so that the same text always gives the same bytes.
function(compress source target)
  execute_process(COMMAND gzip -9nc ${source} OUTPUT_FILE ${target} COMMAND_ERROR_IS_FATAL ANY)
  file(CHMOD ${target} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endfunction()

set(share kivo_documentation/usr/share)
foreach(doc IN ITEMS kivo_library/usr/share/doc/${library_package}
                     kivo_development/usr/share/doc/libkivo-dev
                     kivo_describe/usr/share/doc/kivo-describe
                     ${share}/doc/libkivo-doc)
  compress(${CPACK_KIVO_PACKAGING_DIR}/changelog
           ${CPACK_TEMPORARY_DIRECTORY}/${doc}/changelog.Debian.gz)
endforeach()
foreach(manual_page IN ITEMS ${share}/man/man7/kivo.7
                             kivo_describe/usr/share/man/man1/kivo-describe.1)
  set(manual_page ${CPACK_TEMPORARY_DIRECTORY}/${manual_page})
  compress(${manual_page} ${manual_page}.gz)
  file(REMOVE ${manual_page})
endforeach()
compress(${CPACK_KIVO_PACKAGING_DIR}/../CHANGELOG.md
         ${CPACK_TEMPORARY_DIRECTORY}/${share}/doc/libkivo-doc/changelog.gz)
