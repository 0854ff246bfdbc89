# What every folder of the house is built with: the language, the warnings, and the rule that a
# folder sees the headers of those folders only that it links to.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(UADMIN_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)
if(UADMIN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(WIN32)
  add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
  add_compile_options(-municode)
  add_link_options(-static -municode)
endif()

if(WIN32)
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
  set(CMAKE_SHARED_LIBRARY_PREFIX "")
endif()

# house_headers(TARGET FOLDER): whoever links TARGET may include "FOLDER/...". The folder is reached
# through a link in the build tree that holds nothing else, so that no other folder comes with it.
function(house_headers target folder)
  set(view ${CMAKE_BINARY_DIR}/include/${target})
  get_filename_component(parent ${view}/${folder} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  if(NOT EXISTS ${view}/${folder})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${view}/${folder} SYMBOLIC)
  endif()
  get_target_property(kind ${target} TYPE)
  if(kind STREQUAL "INTERFACE_LIBRARY")
    target_include_directories(${target} INTERFACE ${view})
  else()
    target_include_directories(${target} PUBLIC ${view})
  endif()
endfunction()

# house_library(TARGET FOLDER [TARGET ...]): a static library of the folder's sources that links the
# targets named behind it.
function(house_library target folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  add_library(${target} STATIC ${sources})
  house_headers(${target} ${folder})
  target_link_libraries(${target} PUBLIC ${ARGN})
endfunction()
