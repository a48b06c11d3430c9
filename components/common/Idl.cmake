# tollvane_idl(target file.idl): compiles the interfaces and gives the target
#   <file>.h      the C++ declarations (include it by this name),
#   <file>_i.c    the identifiers, compiled in,
#   <file>.tlb    the type library, embedded as resource 1 of type TYPELIB.
include_guard(GLOBAL)

set(TOLLVANE_IDL_DIR ${CMAKE_CURRENT_LIST_DIR}/idl CACHE INTERNAL "")

# Type libraries refer to the system's own one for the base interfaces.
find_path(TOLLVANE_STDOLE_DIR stdole2.tlb
  PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows /usr/lib/wine/x86_64-windows
        $ENV{SystemRoot}/System32
  NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
if(NOT TOLLVANE_STDOLE_DIR)
  message(FATAL_ERROR "stdole2.tlb is needed to build the type libraries: install Wine, "
                      "or set TOLLVANE_STDOLE_DIR to the folder that holds it")
endif()

if(MSVC)
  find_program(TOLLVANE_MIDL midl REQUIRED)
else()
  if(NOT TOLLVANE_WIDL)
    set(TOLLVANE_WIDL widl)
  endif()
  find_program(TOLLVANE_WIDL_PROGRAM ${TOLLVANE_WIDL} REQUIRED)
endif()

function(tollvane_idl target file)
  get_filename_component(source ${file} ABSOLUTE)
  get_filename_component(name ${file} NAME_WE)
  set(out ${CMAKE_CURRENT_BINARY_DIR}/idl/${target})
  file(MAKE_DIRECTORY ${out})
  if(MSVC)
    set(bits win32)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
      set(bits x64)
    endif()
    set(commands COMMAND ${TOLLVANE_MIDL} /nologo /env ${bits} /I ${TOLLVANE_IDL_DIR}
      /h ${out}/${name}.h /iid ${out}/${name}_i.c /tlb ${out}/${name}.tlb
      /proxy nul /dlldata nul ${source})
  else()
    set(widl ${TOLLVANE_WIDL_PROGRAM} -I ${TOLLVANE_IDL_DIR} -L ${TOLLVANE_STDOLE_DIR})
    set(commands
      COMMAND ${widl} -h -o ${out}/${name}.h ${source}
      COMMAND ${widl} -u -o ${out}/${name}_i.c ${source}
      COMMAND ${widl} -t -o ${out}/${name}.tlb ${source})
  endif()
  add_custom_command(
    OUTPUT ${out}/${name}.h ${out}/${name}_i.c ${out}/${name}.tlb
    ${commands}
    DEPENDS ${source} ${TOLLVANE_IDL_DIR}/automation.idl
    COMMENT "Compiling the interfaces of ${name}"
    VERBATIM)
  file(CONFIGURE OUTPUT ${out}/${name}_tlb.rc CONTENT "1 TYPELIB \"@name@.tlb\"\n" @ONLY)
  set_source_files_properties(${out}/${name}_tlb.rc PROPERTIES
    OBJECT_DEPENDS ${out}/${name}.tlb COMPILE_OPTIONS "-I${out}")
  set_source_files_properties(${out}/${name}_i.c PROPERTIES LANGUAGE CXX
    COMPILE_OPTIONS "$<$<NOT:$<C_COMPILER_ID:MSVC>>:-w>")
  target_sources(${target} PRIVATE ${out}/${name}.h ${out}/${name}_i.c ${out}/${name}_tlb.rc)
  target_include_directories(${target} SYSTEM PRIVATE ${out} ${TOLLVANE_IDL_DIR})
endfunction()
