# Draws the icons of this folder, each in every size that Windows asks for. A drawing that small
# sizes would blur has a simpler version of itself in small/, which is taken up to 20 pixels.

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(ICOTOOL icotool REQUIRED)

set(UADMIN_ICON_FOLDER ${CMAKE_CURRENT_LIST_DIR})

# uadmin_icon(NAME FOLDER): makes FOLDER/NAME.ico from NAME.svg.
function(uadmin_icon name folder)
  set(detailed ${UADMIN_ICON_FOLDER}/${name}.svg)
  set(small ${UADMIN_ICON_FOLDER}/small/${name}.svg)
  if(NOT EXISTS ${small})
    set(small ${detailed})
  endif()
  set(draw)
  set(pictures)
  foreach(size 16 20 24 28 32 36 40 48 64 256)
    set(drawing ${detailed})
    if(size LESS_EQUAL 20)
      set(drawing ${small})
    endif()
    list(APPEND draw COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${name}-${size}.png ${drawing})
    if(size EQUAL 256)
      list(APPEND pictures -r)  # stored compressed, as Windows expects of this size
    endif()
    list(APPEND pictures ${name}-${size}.png)
  endforeach()
  add_custom_command(
    OUTPUT ${folder}/${name}.ico
    ${draw}
    COMMAND ${ICOTOOL} -c -o ${name}.ico ${pictures}
    DEPENDS ${detailed} ${small}
    WORKING_DIRECTORY ${folder}
    COMMENT "Drawing icon ${name}"
    VERBATIM)
endfunction()

# uadmin_icons(RESULT FOLDER): makes every icon of this folder in FOLDER and lists the files made.
function(uadmin_icons result folder)
  file(GLOB drawings CONFIGURE_DEPENDS ${UADMIN_ICON_FOLDER}/*.svg ${UADMIN_ICON_FOLDER}/small/*.svg)
  set(icons)
  foreach(drawing IN LISTS drawings)
    get_filename_component(name ${drawing} NAME_WE)
    list(APPEND icons ${name})
  endforeach()
  list(REMOVE_DUPLICATES icons)
  set(made)
  foreach(name IN LISTS icons)
    uadmin_icon(${name} ${folder})
    list(APPEND made ${folder}/${name}.ico)
  endforeach()
  set(${result} ${made} PARENT_SCOPE)
endfunction()
