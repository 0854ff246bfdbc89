# GoogleTest, built here from the distribution's sources for whichever compiler is in use.

set(UADMIN_GOOGLETEST /usr/src/googletest/googletest CACHE PATH "GoogleTest's source folder")

if(NOT TARGET gtest_house)
  add_library(gtest_house STATIC ${UADMIN_GOOGLETEST}/src/gtest-all.cc)
  target_include_directories(gtest_house SYSTEM PUBLIC ${UADMIN_GOOGLETEST}/include)
  target_include_directories(gtest_house PRIVATE ${UADMIN_GOOGLETEST})
  target_compile_options(gtest_house PRIVATE -w)
  if(NOT WIN32)
    find_package(Threads REQUIRED)
    target_link_libraries(gtest_house PUBLIC Threads::Threads)
  endif()
endif()

# house_test(NAME FOLDER [TARGET ...]): a test program of the folder's sources that links the targets
# named, and is run by ctest (under Wine where that is needed). Its main function is tests/Main.cpp.
function(house_test name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources} ${PROJECT_SOURCE_DIR}/tests/Main.cpp)
  target_link_libraries(${name} PRIVATE ${ARGN} gtest_house)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name})
endfunction()
