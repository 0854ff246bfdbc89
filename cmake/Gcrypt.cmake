# libgcrypt, as the target gcrypt_library: shared natively, static for Windows, where the libraries that
# it stands on have to be named as well.

if(NOT TARGET gcrypt_library)
  find_path(UADMIN_GCRYPT_INCLUDE gcrypt.h REQUIRED)
  add_library(gcrypt_library INTERFACE IMPORTED GLOBAL)
  target_include_directories(gcrypt_library INTERFACE ${UADMIN_GCRYPT_INCLUDE})
  if(WIN32)
    find_library(UADMIN_GCRYPT_LIBRARY libgcrypt.a REQUIRED)
    find_library(UADMIN_GPG_ERROR_LIBRARY libgpg-error.a REQUIRED)
    target_link_libraries(gcrypt_library INTERFACE ${UADMIN_GCRYPT_LIBRARY}
                          ${UADMIN_GPG_ERROR_LIBRARY} ws2_32 advapi32)
  else()
    find_library(UADMIN_GCRYPT_LIBRARY gcrypt REQUIRED)
    target_link_libraries(gcrypt_library INTERFACE ${UADMIN_GCRYPT_LIBRARY})
  endif()
endif()
