# libgcrypt, as the target gcrypt_library. Windows has cryptography of its own.

if(NOT WIN32 AND NOT TARGET gcrypt_library)
  find_path(UADMIN_GCRYPT_INCLUDE gcrypt.h REQUIRED)
  find_library(UADMIN_GCRYPT_LIBRARY gcrypt REQUIRED)
  add_library(gcrypt_library INTERFACE IMPORTED GLOBAL)
  target_include_directories(gcrypt_library INTERFACE ${UADMIN_GCRYPT_INCLUDE})
  target_link_libraries(gcrypt_library INTERFACE ${UADMIN_GCRYPT_LIBRARY})
endif()
