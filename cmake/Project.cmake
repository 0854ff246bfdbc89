# What every folder of the project is built with: the language, the warnings, and the rule that a
# folder sees the headers of those folders only that it links to.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
# With -O3 GCC 12 finds overlaps and overflows in plain sums of strings that are not there.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(UADMIN_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

# Compilers' results are kept where ccache is there to do it. Without the settings named here it
# keeps nothing that was compiled with a precompiled header.
find_program(UADMIN_CCACHE ccache)
if(UADMIN_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}
      CCACHE_NOHASHDIR=1 ${UADMIN_CCACHE})
  add_compile_options(-fpch-preprocess)
endif()

# The native programs are large for their debugging information; lld links them in half the time.
find_program(UADMIN_LLD ld.lld)
if(UADMIN_LLD AND NOT WIN32)
  add_link_options(-fuse-ld=lld)
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
  # The headers name the system that the program is made for: older ones are treated otherwise.
  add_link_options(-Wl,--major-os-version=10,--minor-os-version=0)
  add_link_options(-Wl,--major-subsystem-version=10,--minor-subsystem-version=0)
  # The same sources give the same bytes, whenever they are built. (Where they are built shows nowhere.)
  add_link_options(-Wl,--no-insert-timestamp)
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

# What nearly every source includes of the standard library is read once for all of them. A source
# still includes what it uses: a check of the repository compiles the headers without this.
# The folders that only Windows has read its headers so too.
set(UADMIN_COMMON_HEADERS
  <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <string> <string_view>
  <unordered_map> <unordered_set> <utility> <vector>)
set(UADMIN_WINDOWS_HEADERS <windows.h> <commctrl.h> <oleauto.h>)
set(UADMIN_WINDOWS_FOLDERS "^(automation|server/engines/odbc|tests/program(/.*)?|(.*/)?(com|win32)(/.*)?)$")
file(WRITE ${CMAKE_BINARY_DIR}/precompiled/Empty.cpp "")

# uadmin_precompiled(NAME HEADER ...): headers to be read once; on Windows also NAME_windows, with the
# system's own.
function(uadmin_precompiled name)
  add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/precompiled/Empty.cpp)
  target_precompile_headers(${name} PRIVATE ${ARGN})
  if(WIN32)
    add_library(${name}_windows OBJECT ${CMAKE_BINARY_DIR}/precompiled/Empty.cpp)
    target_precompile_headers(${name}_windows PRIVATE ${ARGN} ${UADMIN_WINDOWS_HEADERS})
  endif()
endfunction()

# uadmin_precompile(TARGET FOLDER NAME): has the sources of a folder compiled with them.
function(uadmin_precompile target folder name)
  if(WIN32 AND folder MATCHES "${UADMIN_WINDOWS_FOLDERS}")
    string(APPEND name _windows)
  endif()
  target_precompile_headers(${target} REUSE_FROM ${name})
endfunction()

uadmin_precompiled(precompiled ${UADMIN_COMMON_HEADERS})

# uadmin_sources(RESULT FOLDER): lists the folder's sources, of which there has to be one.
function(uadmin_sources result folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    message(FATAL_ERROR "no sources in ${folder}")
  endif()
  set(${result} ${sources} PARENT_SCOPE)
endfunction()

# With sanitizers several sources are compiled at a time, which takes half as long: nobody is handed what
# they make, and the build for Windows shows that each source compiles alone.
set(UADMIN_BATCH 8 CACHE STRING "How many sources of a library are compiled at a time with sanitizers")

# uadmin_batch(TARGET SIZE): compiles so many sources of the target at a time; 1 is each alone.
function(uadmin_batch target size)
  if(size GREATER 1)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${size})
  endif()
endfunction()

# uadmin_library(TARGET FOLDER [TARGET ...]): a static library of the folder's sources that links the
# targets named after it.
function(uadmin_library target folder)
  uadmin_sources(sources ${folder})
  add_library(${target} STATIC ${sources})
  uadmin_precompile(${target} ${folder} precompiled)
  uadmin_headers(${target} ${folder})
  target_link_libraries(${target} PUBLIC ${ARGN})
  if(UADMIN_SANITIZE)
    uadmin_batch(${target} ${UADMIN_BATCH})
  endif()
endfunction()
