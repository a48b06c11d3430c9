# GoogleTest from its sources, so that the native and the Windows tests use the same one.
# Debian's package "googletest" puts them where the default says; elsewhere set the variable.
include_guard(GLOBAL)
set(TOLLVANE_GOOGLETEST /usr/src/googletest CACHE PATH "Folder of GoogleTest's sources")
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${TOLLVANE_GOOGLETEST} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)

# tollvane_test_program(NAME SOURCE...): a program of test cases, run by ./test because its name ends
# in "_tests". GoogleTest's headers are most of what a test source reads: where there are many
# sources, they are read once.
function(tollvane_test_program name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE GTest::gmock GTest::gtest_main)
  list(LENGTH ARGN sources)
  if(sources GREATER 6)
    target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
  endif()
endfunction()
