# tollvane_options: the one place that says how our own code is compiled.
add_library(tollvane_options INTERFACE)
target_compile_features(tollvane_options INTERFACE cxx_std_20)
target_include_directories(tollvane_options INTERFACE ${PROJECT_SOURCE_DIR})

if(MSVC)
  target_compile_options(tollvane_options INTERFACE /W4 /WX /permissive- /EHsc)
  target_compile_definitions(tollvane_options INTERFACE _CRT_SECURE_NO_WARNINGS)
else()
  target_compile_options(tollvane_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor> $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>
    -Werror)
endif()

if(WIN32)
  # The program is an 8-bit program in the system's code page: the generic names mean the A functions.
  target_compile_definitions(tollvane_options INTERFACE
    WIN32_LEAN_AND_MEAN NOMINMAX WINVER=0x0A00 _WIN32_WINNT=0x0A00 STRICT)
  if(NOT MSVC)
    # What nothing calls, and the symbols, stay out of what ships.
    target_compile_options(tollvane_options INTERFACE
      -fstack-protector-strong -ffunction-sections -fdata-sections)
    target_link_options(tollvane_options INTERFACE
      -fstack-protector-strong -Wl,--gc-sections -s)
    # Sections begin at pages in the file, too: it is mapped, and what is not used is not read.
    target_link_options(tollvane_options INTERFACE -Wl,--file-alignment=4096)
    # The same sources give the same bytes.
    target_link_options(tollvane_options INTERFACE -Wl,--no-insert-timestamp)
  endif()
else()
  if(TOLLVANE_SANITIZE)
    target_compile_options(tollvane_options INTERFACE
      -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(tollvane_options INTERFACE -fsanitize=address,undefined)
  endif()
  target_compile_definitions(tollvane_options INTERFACE _GLIBCXX_ASSERTIONS)
endif()

# tollvane_precompile(TARGET [HEADER...]): what nearly every source includes, and the headers named, is
# read once for the target. The x86 build goes without, and so proves that a source names what it needs.
option(TOLLVANE_PRECOMPILE "Read common headers once per target" ON)
function(tollvane_precompile target)
  if(NOT TOLLVANE_PRECOMPILE)
    return()
  endif()
  foreach(header algorithm array functional memory optional string utility vector ${ARGN})
    target_precompile_headers(${target} PRIVATE "$<$<COMPILE_LANGUAGE:CXX>:<${header}$<ANGLE-R>>")
  endforeach()
endfunction()
