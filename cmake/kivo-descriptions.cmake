# Installs what kivo-describe makes of the description of a tool:
#
#   kivo_install_descriptions(TARGET [NAME name])
#
# TARGET is an executable of the same project that calls kivo::describeIfAsked(). The build runs it
# and makes a manual page and completion scripts; NAME is the name of the executable unless given.
# The installation puts them below ${CMAKE_INSTALL_DATADIR} and ${CMAKE_INSTALL_MANDIR}, where man and
# each shell look for them:
#
#   man1/NAME.1   bash-completion/completions/NAME   zsh/site-functions/_NAME
#   fish/vendor_completions.d/NAME.fish
#
# For a Debian package, with the prefix /usr, zsh looks in zsh/vendor-completions instead.
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
    message(NOTICE "No manual page and no completion of ${target} will be installed: ${obstacle}")
    return()
  endif()

  include(GNUInstallDirs)
  set(run ${CMAKE_COMMAND} -E env
      --modify LD_LIBRARY_PATH=path_list_prepend:$<TARGET_FILE_DIR:kivo::kivo>
      ${CMAKE_CROSSCOMPILING_EMULATOR})
  set(description ${CMAKE_CURRENT_BINARY_DIR}/${name}.json)
  add_custom_command(
    OUTPUT ${description}
    COMMAND ${run} $<TARGET_FILE:${target}> kivooption=kivodescribe=json > ${description}
    DEPENDS ${target}
    COMMENT "Describing ${target}"
    VERBATIM)
  set(zsh_folder site-functions)
  if(CMAKE_INSTALL_PREFIX MATCHES "^/usr$" AND EXISTS /etc/debian_version)
    set(zsh_folder vendor-completions)
  endif()
  set(formats man bash zsh fish)
  set(files ${name}.1 ${name}.bash _${name} ${name}.fish)
  set(destinations ${CMAKE_INSTALL_MANDIR}/man1
                   ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
                   ${CMAKE_INSTALL_DATADIR}/zsh/${zsh_folder}
                   ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
  set(made "")
  foreach(format file destination IN ZIP_LISTS formats files destinations)
    set(file ${CMAKE_CURRENT_BINARY_DIR}/${file})
    add_custom_command(
      OUTPUT ${file}
      COMMAND ${run} $<TARGET_FILE:kivo::kivo-describe> -${format} ${description} > ${file}
      DEPENDS ${description} kivo::kivo-describe
      VERBATIM)
    list(APPEND made ${file})
    if(format STREQUAL "bash")  # found by the name of the tool alone
      install(FILES ${file} DESTINATION ${destination} RENAME ${name})
    else()
      install(FILES ${file} DESTINATION ${destination})
    endif()
  endforeach()
  add_custom_target(${target}_descriptions ALL DEPENDS ${made})
endfunction()
