# What a file of the product says of itself to Windows: version, company, copyright, manifest.

set(PROJECT_VENDOR "User Administration")
set(PROJECT_COPYRIGHT "Copyright © 2026 the User Administration authors")
configure_file(${PROJECT_SOURCE_DIR}/resources/VersionInfo.rc.in
               ${CMAKE_BINARY_DIR}/identity/VersionInfo.rc @ONLY)

# uadmin_identity(TARGET DESCRIPTION): gives the program or library a version and a manifest. uadmin.exe has
# them among its other resources.
function(uadmin_identity part description)
  get_target_property(kind ${part} TYPE)
  if(kind STREQUAL "EXECUTABLE")
    set(file ${part}.exe)
    set(type VFT_APP)
    set(manifest CREATEPROCESS_MANIFEST_RESOURCE_ID)
  else()
    set(file ${part}.dll)
    set(type VFT_DLL)
    set(manifest ISOLATIONAWARE_MANIFEST_RESOURCE_ID)
  endif()
  set(made ${CMAKE_BINARY_DIR}/identity)
  configure_file(${PROJECT_SOURCE_DIR}/resources/part.manifest.in ${made}/${part}.manifest @ONLY)
  configure_file(${PROJECT_SOURCE_DIR}/resources/part.rc.in ${made}/${part}.rc @ONLY)
  set_source_files_properties(${made}/${part}.rc PROPERTIES
    OBJECT_DEPENDS "${made}/${part}.manifest;${made}/VersionInfo.rc"
    INCLUDE_DIRECTORIES ${made})
  target_sources(${part} PRIVATE ${made}/${part}.rc)
endfunction()
