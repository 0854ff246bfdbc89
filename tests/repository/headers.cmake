# One source for every header that no source begins with, with nothing but that header in it: what
# does not compile lacks an include. The library is built by its test alone.

file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
  ${PROJECT_SOURCE_DIR}/app/*.h ${PROJECT_SOURCE_DIR}/bench/*.h ${PROJECT_SOURCE_DIR}/browser/*.h
  ${PROJECT_SOURCE_DIR}/controls/*.h ${PROJECT_SOURCE_DIR}/data/*.h
  ${PROJECT_SOURCE_DIR}/dialogs/*.h ${PROJECT_SOURCE_DIR}/resources/*.h
  ${PROJECT_SOURCE_DIR}/server/*.h ${PROJECT_SOURCE_DIR}/tests/*.h ${PROJECT_SOURCE_DIR}/com/*.h
  ${PROJECT_SOURCE_DIR}/automation/*.h)
# A list of macro calls, which is included for what the includer makes of them.
list(REMOVE_ITEM headers resources/strings_fr.h)
# Each compiler is given the headers of its own: those of the folders that only Windows has, or the
# portable ones.
set(windowsFolders "(.*/)?(win32|com|window)|automation|server/kvh_util|tests/help|tests/program")
if(WIN32)
  list(FILTER headers INCLUDE REGEX "^(${windowsFolders})/")
else()
  list(FILTER headers EXCLUDE REGEX "^(${windowsFolders})/")
endif()

# Of the product's own sources each begins with its own header and is compiled by itself: those
# headers have stood alone already (the formatter keeps them first). Tests are compiled several at a time, after the common headers.
set(shown "")
foreach(header IN LISTS headers)
  string(REGEX REPLACE "h$" "cpp" source ${header})
  if(header MATCHES "^(tests|bench)/" OR NOT EXISTS ${PROJECT_SOURCE_DIR}/${source})
    continue()
  endif()
  file(STRINGS ${PROJECT_SOURCE_DIR}/${source} first REGEX "^#include" LIMIT_COUNT 1)
  if(first STREQUAL "#include \"${header}\"")
    list(APPEND shown ${header})
  endif()
endforeach()
list(REMOVE_ITEM headers ${shown})

set(alone)
foreach(header IN LISTS headers)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/alone/${header}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "#include \"@header@\"\n" @ONLY)
  list(APPEND alone ${source})
endforeach()
add_library(headers_alone OBJECT EXCLUDE_FROM_ALL ${alone})
target_include_directories(headers_alone PRIVATE ${PROJECT_SOURCE_DIR})
target_compile_options(headers_alone PRIVATE -O0 -g0 -fno-sanitize=all
                       -Wno-non-virtual-dtor)
target_link_libraries(headers_alone PRIVATE googletest sqlite3_library)

uadmin_check(headers COMMAND ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target headers_alone)
