# Run by cpack when the files of a package are in place: what Debian wants otherwise than the
# installation leaves it. Texts are compressed without a time, so that packages can be made again.
if(NOT CPACK_GENERATOR STREQUAL DEB)
  return()
endif()
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)

file(REMOVE ${share}/doc/vireo/CHANGELOG.md)
configure_file(${VIREO_DEBIAN_CHANGELOG} ${share}/doc/vireo/changelog COPYONLY)
file(GLOB pages ${share}/man/man*/*)
foreach(text IN LISTS pages ITEMS ${share}/doc/vireo/changelog)
  execute_process(COMMAND gzip -9 -n ${text} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

configure_file(${CMAKE_CURRENT_LIST_DIR}/lintian-overrides ${share}/lintian/overrides/vireo COPYONLY)

# What strip leaves by itself.
file(GLOB programs ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/*
     ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/libexec/vireo/*)
foreach(program IN LISTS programs)
  execute_process(COMMAND strip --strip-unneeded --remove-section=.comment
                          --remove-section=.note ${program} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
