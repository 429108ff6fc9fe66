# Third-party code. `tools/setup` puts the sources where these paths say; nothing is vendored.
set(TESSIVO_DEPS_DIR ${PROJECT_SOURCE_DIR}/build/deps CACHE PATH "Where tools/setup unpacked the pinned sources")

function(tessivo_require path what)
  if(NOT EXISTS ${path})
    message(FATAL_ERROR "${what} is missing (${path}). Run tools/setup first.")
  endif()
endfunction()

tessivo_require(${TESSIVO_DEPS_DIR}/access/fruit.mdb "A file of Access for the tests")

# SQLite, one pinned amalgamation for both worlds.
tessivo_require(${TESSIVO_DEPS_DIR}/sqlite3/sqlite3.c "SQLite's amalgamation")
add_library(sqlite3 STATIC ${TESSIVO_DEPS_DIR}/sqlite3/sqlite3.c)
target_include_directories(sqlite3 SYSTEM PUBLIC ${TESSIVO_DEPS_DIR}/sqlite3)
# The retry settings bound what a file that another program keeps shut may cost the user-interface
# thread on Windows: 5 + 10 + 15 ms instead of 1.4 s.
target_compile_definitions(sqlite3 PRIVATE
  SQLITE_THREADSAFE=0 SQLITE_OMIT_LOAD_EXTENSION SQLITE_DEFAULT_MEMSTATUS=0 SQLITE_DQS=0
  SQLITE_WIN32_IOERR_RETRY=3 SQLITE_WIN32_IOERR_RETRY_DELAY=5)
target_compile_options(sqlite3 PRIVATE -w)
if(NOT WIN32)
  target_link_libraries(sqlite3 PUBLIC m)
endif()
if(TESSIVO_FUZZ)
  # Fuzzed along with the program, not for its own sake: without what makes it three times slower.
  target_compile_options(sqlite3 PRIVATE -O2 -fno-sanitize=undefined)
endif()

if(TESSIVO_TESTS)
  tessivo_require(/usr/src/googletest/CMakeLists.txt "GoogleTest's source (package googletest)")
  set(INSTALL_GTEST OFF)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
endif()

if(TESSIVO_BENCH)
  tessivo_require(${TESSIVO_DEPS_DIR}/benchmark/CMakeLists.txt "Google Benchmark's source")
  set(BENCHMARK_ENABLE_TESTING OFF)
  set(BENCHMARK_ENABLE_INSTALL OFF)
  set(BENCHMARK_ENABLE_WERROR OFF)
  add_subdirectory(${TESSIVO_DEPS_DIR}/benchmark ${CMAKE_BINARY_DIR}/benchmark EXCLUDE_FROM_ALL SYSTEM)
endif()
