# The target product: everything that is delivered, and nothing else.

add_custom_target(product)
# The linker's maps, from which packaging tells what is inside.
set(maps ${CMAKE_BINARY_DIR}/maps)
file(MAKE_DIRECTORY ${maps})
foreach(part uadmin vardex vardexctl kvh_util help_file)
  if(TARGET ${part})
    add_dependencies(product ${part})
    get_target_property(kind ${part} TYPE)
    if(WIN32 AND NOT kind STREQUAL "UTILITY")
      target_link_options(${part} PRIVATE -Wl,-Map=${maps}/${part}.map)
    endif()
  endif()
endforeach()
