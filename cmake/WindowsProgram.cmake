# What programs for Windows have besides code.

if(WIN32)
  enable_language(RC)
endif()

# vireo_windows_resources(TARGET DESCRIPTION): icon, manifest and version record, the description
# being what Windows shows for the program. Does nothing elsewhere.
function(vireo_windows_resources program description)
  if(NOT WIN32)
    return()
  endif()
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${program}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/resources/windows/program.rc.in ${script} @ONLY)
  target_sources(${program} PRIVATE ${script})
  set_source_files_properties(${script} PROPERTIES
    INCLUDE_DIRECTORIES ${PROJECT_BINARY_DIR}/generated
    OBJECT_DEPENDS "${PROJECT_SOURCE_DIR}/resources/icons/vireo.ico;${PROJECT_SOURCE_DIR}/resources/windows/program.manifest;${PROJECT_BINARY_DIR}/generated/VersionRecord.h")
endfunction()
