# What every folder of the project is built with: the language, the warnings, and the rule that a
# folder sees the headers of those folders only that it links to.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(UADMIN_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

# Compilers' results are kept where ccache is there to do it.
find_program(UADMIN_CCACHE ccache)
if(UADMIN_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${UADMIN_CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)
# A broken invariant ends the program, in what is delivered too.
add_compile_definitions(_GLIBCXX_ASSERTIONS)
add_compile_options(-fstack-protector-strong)
if(UADMIN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(WIN32)
  add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
  add_compile_options(-municode)
  add_link_options(-static -municode -fstack-protector-strong -Wl,--nxcompat,--dynamicbase)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    add_link_options(-Wl,--high-entropy-va)
  endif()
  # What nobody calls is left out, and so are symbols.
  add_compile_options($<$<CONFIG:Release>:-ffunction-sections> $<$<CONFIG:Release>:-fdata-sections>)
  add_link_options($<$<CONFIG:Release>:-s> $<$<CONFIG:Release>:-Wl,--gc-sections>)
endif()

if(WIN32)
  if(NOT CMAKE_HOST_WIN32)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/scripts/wine-run)
  endif()
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
  set(CMAKE_SHARED_LIBRARY_PREFIX "")
endif()

# An executable adds the control back end that its forms are to run on. The forms' libraries cannot
# name it, so the order of the libraries says nothing: the linker searches them as one group.
add_link_options(-Wl,--start-group)
string(APPEND CMAKE_CXX_STANDARD_LIBRARIES " -Wl,--end-group")

# uadmin_headers(TARGET FOLDER): whoever links TARGET may include "FOLDER/...". The folder is reached
# through a link in the build tree that holds nothing else, so that no other folder comes with it.
function(uadmin_headers target folder)
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

# uadmin_library(TARGET FOLDER [TARGET ...]): a static library of the folder's sources that links the
# targets named behind it.
function(uadmin_library target folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    message(FATAL_ERROR "${target}: no sources in ${folder}")
  endif()
  add_library(${target} STATIC ${sources})
  uadmin_headers(${target} ${folder})
  target_link_libraries(${target} PUBLIC ${ARGN})
endfunction()
