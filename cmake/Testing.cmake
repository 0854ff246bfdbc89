# GoogleTest, built here from the distribution's sources for whichever compiler is in use.

set(UADMIN_GOOGLETEST /usr/src/googletest/googletest CACHE PATH "GoogleTest's source folder")

if(NOT TARGET googletest)
  add_library(googletest STATIC ${UADMIN_GOOGLETEST}/src/gtest-all.cc)
  target_include_directories(googletest SYSTEM PUBLIC ${UADMIN_GOOGLETEST}/include)
  target_include_directories(googletest PRIVATE ${UADMIN_GOOGLETEST})
  target_compile_options(googletest PRIVATE -w)
  if(NOT WIN32)
    find_package(Threads REQUIRED)
    target_link_libraries(googletest PUBLIC Threads::Threads)
  endif()
endif()

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

# uadmin_test(NAME FOLDER [TARGET ...]): a test program of the folder's sources that links the targets
# named, and is run by ctest (under Wine where that is needed). Its main function is tests/Main.cpp.
function(uadmin_test name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources} ${PROJECT_SOURCE_DIR}/tests/Main.cpp)
  target_link_libraries(${name} PRIVATE ${ARGN} googletest)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${UADMIN_TEST_SECONDS}
    ENVIRONMENT "GTEST_OUTPUT=xml:${UADMIN_RESULTS}/${name}.xml;${UADMIN_SANITIZER_SETTINGS}")
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
