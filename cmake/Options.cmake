# Compile options of our own code. Third-party code is built without them (see Dependencies.cmake).
add_library(tessivo_options INTERFACE)
set(TESSIVO_GENERATED ${PROJECT_BINARY_DIR}/generated)
configure_file(${PROJECT_SOURCE_DIR}/cmake/Version.h.in ${TESSIVO_GENERATED}/base/TessivoVersion.h @ONLY)
target_include_directories(tessivo_options INTERFACE ${PROJECT_SOURCE_DIR}/src ${TESSIVO_GENERATED})
target_compile_options(tessivo_options INTERFACE
  -Wall -Wextra -Werror -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
  -Wcast-align -Wimplicit-fallthrough -Wextra-semi)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # A false alarm of GCC 12 on `"text" + std::string` in optimised builds.
  target_compile_options(tessivo_options INTERFACE -Wno-restrict)
endif()

if(WIN32)
  target_compile_definitions(tessivo_options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT _WIN32_WINNT=0x0A00 WINVER=0x0A00)
  # C casts inside the system's macros (MAKEINTRESOURCE and the like) are not ours to mend.
  target_compile_options(tessivo_options INTERFACE -Wno-old-style-cast -Wno-cast-function-type)
  # No run-time dependency beyond Windows: libgcc, libstdc++ and winpthread go into the program.
  # And the same source gives the same bytes, whenever it is built.
  target_link_options(tessivo_options INTERFACE -static -Wl,--no-insert-timestamp)
endif()

if(TESSIVO_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  add_link_options(-fsanitize=address,undefined)
endif()

if(TESSIVO_FUZZ)
  # Coverage for libFuzzer in everything, also in SQLite; the targets alone are linked with it. The
  # corpora have the words that matter: without a look at comparisons it is more than twice as fast.
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
    -fno-sanitize-coverage=trace-cmp -fno-omit-frame-pointer -O2 -gline-tables-only)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  add_link_options(-fsanitize=address,undefined)
endif()
