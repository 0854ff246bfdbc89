# SQLite, as the target sqlite3_library: the system's own natively; for Windows a static library that
# scripts/build-sqlite makes from the distribution's source package.

if(NOT TARGET sqlite3_library)
  if(WIN32)
    set(UADMIN_SQLITE ${PROJECT_SOURCE_DIR}/build/sqlite/${triple})
    if(NOT EXISTS ${UADMIN_SQLITE}/lib/libsqlite3.a)
      message(FATAL_ERROR "No SQLite for ${triple}: run scripts/build-sqlite first")
    endif()
    add_library(sqlite3_library STATIC IMPORTED GLOBAL)
    set_target_properties(sqlite3_library PROPERTIES
      IMPORTED_LOCATION ${UADMIN_SQLITE}/lib/libsqlite3.a
      INTERFACE_INCLUDE_DIRECTORIES ${UADMIN_SQLITE}/include)
  else()
    find_package(SQLite3 3.40 REQUIRED)
    add_library(sqlite3_library INTERFACE IMPORTED GLOBAL)
    target_link_libraries(sqlite3_library INTERFACE SQLite::SQLite3)
    set_target_properties(SQLite::SQLite3 PROPERTIES IMPORTED_GLOBAL TRUE)
  endif()
endif()
