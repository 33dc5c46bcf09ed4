# Installs the library, its headers, and the files for find_package() and pkg-config. No installed
# file has an absolute path, so the installed tree can be moved, unless an install directory is
# absolute itself. Each Debian package is a component; `cmake --install` without a component installs
# them all.
include(CMakePackageConfigHelpers)

# The shared library and the archive may be installed into one prefix, one after the other: the files
# that they share have the same content, and the others have different names.
set(kivo_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/kivo)
set(kivo_targets_file kivo-targets.cmake)
set(kivo_pc kivo.pc)
if(kivo_is_archive)
  set(kivo_targets_file kivo-static-targets.cmake)
  set(kivo_pc kivo-static.pc)
endif()
install(TARGETS kivo EXPORT kivo_targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
                COMPONENT kivo_library NAMELINK_COMPONENT kivo_development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT kivo_development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/kivo
                  ${PROJECT_SOURCE_DIR}/platform/stratum2/include/stratum2
                  ${PROJECT_SOURCE_DIR}/platform/bedrock/include/bedrock
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT kivo_development
        FILES_MATCHING
        PATTERN "kivo/*.h"
        PATTERN "stratum2/variant.h"
        PATTERN "bedrock/assertion.h"
        PATTERN "bedrock/export.h")
install(EXPORT kivo_targets NAMESPACE kivo:: FILE ${kivo_targets_file}
        DESTINATION ${kivo_package_dir} COMPONENT kivo_development)

configure_file(${PROJECT_SOURCE_DIR}/cmake/kivo-config.cmake.in
               ${PROJECT_BINARY_DIR}/kivo-config.cmake COPYONLY)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kivo-config-version.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kivo-config.cmake
              ${PROJECT_BINARY_DIR}/kivo-config-version.cmake
              ${PROJECT_SOURCE_DIR}/cmake/kivo-descriptions.cmake
        DESTINATION ${kivo_package_dir} COMPONENT kivo_development)

# The file for pkg-config gives the prefix relative to its own folder, unless that folder is absolute.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(kivo_pc_prefix "${CMAKE_INSTALL_PREFIX}")
else()
  file(RELATIVE_PATH prefix_from_pc
       "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
  set(kivo_pc_prefix "\${pcfiledir}/${prefix_from_pc}")
endif()
foreach(directory IN ITEMS LIBDIR INCLUDEDIR)
  set(kivo_pc_${directory} "\${prefix}")
  cmake_path(APPEND kivo_pc_${directory} "${CMAKE_INSTALL_${directory}}")  # an absolute one replaces
endforeach()
set(kivo_pc_standard_library "")
if(KIVO_STANDARD_LIBRARY_IS_LIBSTDCXX)
  set(kivo_pc_standard_library "-lstdc++ ")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/${kivo_pc}.in ${PROJECT_BINARY_DIR}/${kivo_pc} @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/${kivo_pc}
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT kivo_development)
if(kivo_is_archive)
  # The archive is "kivo" where there is no shared library.
  install(CODE "
    set(directory \"${CMAKE_INSTALL_LIBDIR}\")
    if(NOT IS_ABSOLUTE \"\${directory}\")
      set(directory \"\${CMAKE_INSTALL_PREFIX}/\${directory}\")
    endif()
    if(NOT IS_SYMLINK \"\$ENV{DESTDIR}\${directory}/libkivo.so\")
      file(INSTALL \"${PROJECT_BINARY_DIR}/${kivo_pc}\" RENAME kivo.pc
           DESTINATION \"\${directory}/pkgconfig\")
    endif()" COMPONENT kivo_development)
endif()

# Tools that are installed with the shared library find it relative to their own folder.
file(RELATIVE_PATH library_from_tool ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set(kivo_tool_rpath "$ORIGIN/${library_from_tool}")
if(kivo_is_archive)
  set(kivo_tool_rpath "")
endif()

# For programs that read the description of a tool.
install(FILES ${PROJECT_SOURCE_DIR}/docs/description.schema.json
        DESTINATION ${CMAKE_INSTALL_DATADIR}/kivo COMPONENT kivo_development)

# The manual page for the users of tools.
install(FILES ${PROJECT_SOURCE_DIR}/docs/kivo.7
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man7 COMPONENT kivo_documentation)

if(PROJECT_IS_TOP_LEVEL)
  include(cmake/packages.cmake)
endif()
