# The target product: everything that is delivered, and nothing else.

add_custom_target(product)
foreach(part uadmin vardex vardexctl kvh_util help_file)
  if(TARGET ${part})
    add_dependencies(product ${part})
  endif()
endforeach()
