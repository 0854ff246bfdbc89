# GoogleTest, built here from the distribution's sources for whichever compiler is in use.

set(UADMIN_GOOGLETEST /usr/src/googletest/googletest CACHE PATH "GoogleTest's source folder")

if(NOT TARGET googletest)
  add_library(googletest STATIC ${UADMIN_GOOGLETEST}/src/gtest-all.cc)
  target_include_directories(googletest SYSTEM PUBLIC ${UADMIN_GOOGLETEST}/include)
  target_include_directories(googletest PRIVATE ${UADMIN_GOOGLETEST})
  target_compile_options(googletest PRIVATE -w -O0 -g0)
  if(NOT WIN32)
    find_package(Threads REQUIRED)
    target_link_libraries(googletest PUBLIC Threads::Threads)
  endif()
endif()

# Tests are compiled for being run once: without the optimiser, with what all of them include read
# once, and several sources at a time, which spares each the headers and templates of its neighbours.
set(UADMIN_TEST_BATCH 8 CACHE STRING "How many sources of a test program are compiled at a time")
uadmin_precompiled(precompiled_tests <gtest/gtest.h> <filesystem> <fstream> ${UADMIN_COMMON_HEADERS})
foreach(headers precompiled_tests precompiled_tests_windows)
  if(TARGET ${headers})
    target_compile_options(${headers} PRIVATE -O0)
    target_link_libraries(${headers} PRIVATE googletest)
  endif()
endforeach()

# GNU's linker takes a minute for a test program for Windows. This stands between the compiler and it.
find_program(UADMIN_LLD ld.lld)
if(WIN32 AND UADMIN_LLD)
  set(UADMIN_TEST_LINK_OPTIONS "SHELL:-wrapper ${PROJECT_SOURCE_DIR}/scripts/link-with-lld")
endif()

# uadmin_compile_as_test(TARGET FOLDER): compiles the target, which is made of the folder's sources, so.
function(uadmin_compile_as_test target folder)
  target_compile_options(${target} PRIVATE -O0)
  target_link_libraries(${target} PUBLIC googletest)
  uadmin_precompile(${target} ${folder} precompiled_tests)
  uadmin_batch(${target} ${UADMIN_TEST_BATCH})
endfunction()

# uadmin_test_library(TARGET FOLDER [TARGET ...]): a library that tests share, of the folder's sources.
function(uadmin_test_library target folder)
  uadmin_sources(sources ${folder})
  add_library(${target} STATIC ${sources})
  uadmin_headers(${target} ${folder})
  target_link_libraries(${target} PUBLIC ${ARGN})
  uadmin_compile_as_test(${target} ${folder})
endfunction()

# Where a test program leaves the outcome of each of its tests, NAME.xml. Wine knows the host's
# files as those of its drive Z.
set(UADMIN_RESULTS ${CMAKE_BINARY_DIR}/results)
if(WIN32 AND NOT CMAKE_HOST_WIN32)
  set(UADMIN_RESULTS Z:${UADMIN_RESULTS})
endif()
set(UADMIN_TEST_SECONDS 900 CACHE STRING "How long a test program may run")

# The sanitizers' strictest settings; whatever they find ends the program.
set(UADMIN_SANITIZER_SETTINGS
  ASAN_OPTIONS=halt_on_error=1:detect_stack_use_after_return=1:strict_string_checks=1:check_initialization_order=1:strict_init_order=1:detect_leaks=1
  UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1)

# uadmin_test_program(NAME FOLDER [TARGET ...]): a test program of the folder's sources that links the
# targets named. Its main function is tests/Main.cpp.
function(uadmin_test_program name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources} ${PROJECT_SOURCE_DIR}/tests/Main.cpp)
  target_link_libraries(${name} PRIVATE ${ARGN})
  target_link_options(${name} PRIVATE ${UADMIN_TEST_LINK_OPTIONS})
  uadmin_compile_as_test(${name} ${folder})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
endfunction()

# uadmin_test(NAME FOLDER [TARGET ...]): such a program that is run by ctest, under Wine where that is
# needed.
function(uadmin_test name folder)
  uadmin_test_program(${name} ${folder} ${ARGN})
  if(NOT TARGET ${name})
    return()
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${UADMIN_TEST_SECONDS}
    ENVIRONMENT "GTEST_OUTPUT=xml:${UADMIN_RESULTS}/${name}.xml;${UADMIN_SANITIZER_SETTINGS}")
endfunction()

# uadmin_starts_early(NAME ...): what takes longest is not left to the end, where others would have
# nothing to do beside it.
function(uadmin_starts_early)
  set_tests_properties(${ARGN} PROPERTIES COST 100)
endfunction()

# uadmin_check(NAME COMMAND ...): a test that is no googletest program; it counts as one test. It
# runs on the host in any case.
function(uadmin_check name)
  add_test(NAME check-${name} COMMAND ${ARGN} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  set_tests_properties(check-${name} PROPERTIES TIMEOUT ${UADMIN_TEST_SECONDS})
endfunction()

# uadmin_form_test(NAME FOLDER [TARGET ...]): a uadmin_test of forms, on the control back end of the
# platform: memory natively, native controls on Windows.
function(uadmin_form_test name folder)
  if(WIN32)
    set(backend test_user_win32 controls_win32 uadmin_resources)
  else()
    set(backend test_user_memory controls_memory)
  endif()
  uadmin_test(${name} ${folder} ${ARGN} ${backend})
endfunction()

# Private database servers, which ctest starts before the tests that need them and stops after them.
set(UADMIN_SERVERS ${CMAKE_BINARY_DIR}/servers)
if(NOT WIN32 AND NOT TEST check-start-postgresql)
  foreach(kind postgresql mariadb cluster)
    uadmin_check(start-${kind} COMMAND scripts/database-server start ${kind}
                 ${UADMIN_SERVERS}/${kind})
    uadmin_check(stop-${kind} COMMAND scripts/database-server stop ${UADMIN_SERVERS}/${kind})
    set_tests_properties(check-start-${kind} PROPERTIES FIXTURES_SETUP ${kind})
    set_tests_properties(check-stop-${kind} PROPERTIES FIXTURES_CLEANUP ${kind})
  endforeach()
endif()

# uadmin_run_on_servers(NAME FILTER [KIND ...]): runs a test program on each of the single servers, or on
# those named, with those of its tests that a filter of googletest leaves. Natively only.
function(uadmin_run_on_servers name filter)
  if(WIN32)
    return()
  endif()
  set(kinds ${ARGN})
  if(NOT kinds)
    set(kinds postgresql mariadb)
  endif()
  foreach(kind IN LISTS kinds)
    add_test(NAME ${name}_${kind} COMMAND ${name} --gtest_filter=${filter})
    set_tests_properties(${name}_${kind} PROPERTIES
      TIMEOUT ${UADMIN_TEST_SECONDS}
      FIXTURES_REQUIRED ${kind}
      ENVIRONMENT "UADMIN_DATABASE_SERVER=${UADMIN_SERVERS}/${kind};GTEST_OUTPUT=xml:${UADMIN_RESULTS}/${name}_${kind}.xml;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/driver-leaks:print_suppressions=0;${UADMIN_SANITIZER_SETTINGS}")
  endforeach()
endfunction()
