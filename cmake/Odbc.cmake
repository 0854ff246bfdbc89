# The ODBC driver manager, as the target odbc_library: the system's own, natively unixODBC.

if(NOT TARGET odbc_library)
  add_library(odbc_library INTERFACE IMPORTED GLOBAL)
  if(WIN32)
    target_link_libraries(odbc_library INTERFACE odbc32)
  else()
    find_path(UADMIN_ODBC_INCLUDE sqlext.h REQUIRED)
    find_library(UADMIN_ODBC_LIBRARY odbc REQUIRED)
    target_include_directories(odbc_library INTERFACE ${UADMIN_ODBC_INCLUDE})
    target_link_libraries(odbc_library INTERFACE ${UADMIN_ODBC_LIBRARY})
  endif()
endif()
