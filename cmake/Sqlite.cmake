# Target sqlite3: the store engine of the host data server, compiled from its amalgamation.
# The sources are fetched once into the build folder, for every preset.
set(TOLLVANE_SQLITE_DIR ${PROJECT_SOURCE_DIR}/build/third-party/sqlite)
execute_process(
  COMMAND bash ${PROJECT_SOURCE_DIR}/tools/fetch-sqlite ${TOLLVANE_SQLITE_DIR}
  COMMAND_ERROR_IS_FATAL ANY)

add_library(sqlite3 STATIC ${TOLLVANE_SQLITE_DIR}/sqlite3.c)
target_include_directories(sqlite3 SYSTEM PUBLIC ${TOLLVANE_SQLITE_DIR})
target_compile_definitions(sqlite3 PRIVATE
  SQLITE_THREADSAFE=1
  SQLITE_DEFAULT_FOREIGN_KEYS=1
  SQLITE_DQS=0
  SQLITE_OMIT_DEPRECATED
  SQLITE_OMIT_LOAD_EXTENSION)
if(MSVC)
  target_compile_options(sqlite3 PRIVATE /w)
else()
  # What ships is small: a third less code in memory, for a microsecond or less in a statement whose
  # flushes take milliseconds. The native tests only want it built soon.
  target_compile_options(sqlite3 PRIVATE -w $<IF:$<BOOL:${WIN32}>,-Os,-O0>)
  find_package(Threads REQUIRED)
  target_link_libraries(sqlite3 PUBLIC Threads::Threads)
endif()
