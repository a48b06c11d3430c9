# GoogleTest from its sources, so that the native and the Windows tests use the same one.
# Debian's package "googletest" puts them where the default says; elsewhere set the variable.
include_guard(GLOBAL)
set(TOLLVANE_GOOGLETEST /usr/src/googletest CACHE PATH "Folder of GoogleTest's sources")
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${TOLLVANE_GOOGLETEST} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
