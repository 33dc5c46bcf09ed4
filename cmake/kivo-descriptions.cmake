# Installs what kivo-describe makes of the description of a tool:
#
#   kivo_install_descriptions(TARGET [NAME name])
#
# TARGET is an executable of the same project that calls kivo::describeIfAsked(). The build runs it
# and makes NAME.1, a manual page; NAME is the name of the executable unless given. The installation
# puts the page into ${CMAKE_INSTALL_MANDIR}/man1, where man finds it.
#
# Does nothing, and says so, if the tool cannot run on this machine (a cross build without
# CMAKE_CROSSCOMPILING_EMULATOR) or if kivo-describe is not there: it is a Debian package of its own,
# and a project that includes the sources of the library sets KIVO_BUILD_DESCRIBE to build it.
function(kivo_install_descriptions target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "NAME" "")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "kivo_install_descriptions: unknown arguments ${arg_UNPARSED_ARGUMENTS}")
  endif()
  get_target_property(name ${target} OUTPUT_NAME)
  if(arg_NAME)
    set(name ${arg_NAME})
  elseif(NOT name)
    set(name ${target})
  endif()

  set(obstacle "")
  if(CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
    set(obstacle "this machine cannot run it")
  elseif(NOT TARGET kivo::kivo-describe)
    set(obstacle "kivo-describe was not found")
  endif()
  if(obstacle)
    message(NOTICE "No manual page of ${target} will be installed: ${obstacle}")
    return()
  endif()

  include(GNUInstallDirs)
  set(run ${CMAKE_COMMAND} -E env
      --modify LD_LIBRARY_PATH=path_list_prepend:$<TARGET_FILE_DIR:kivo::kivo>
      ${CMAKE_CROSSCOMPILING_EMULATOR})
  set(description ${CMAKE_CURRENT_BINARY_DIR}/${name}.json)
  set(page ${CMAKE_CURRENT_BINARY_DIR}/${name}.1)
  add_custom_command(
    OUTPUT ${description} ${page}
    COMMAND ${run} $<TARGET_FILE:${target}> kivooption=kivodescribe=json > ${description}
    COMMAND ${run} $<TARGET_FILE:kivo::kivo-describe> -man ${description} > ${page}
    DEPENDS ${target} kivo::kivo-describe
    COMMENT "Describing ${target}"
    VERBATIM)
  add_custom_target(${target}_descriptions ALL DEPENDS ${page})
  install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endfunction()
