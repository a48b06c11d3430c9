# Libraries of the system that are loaded when one of their functions is called first, and not with
# the program: what brings the printing service in costs every start time and memory, and most
# starts never need it.

# Adds the library `name`, which stands for these functions of the system's `dll`. Where its import
# library cannot be made (no dlltool; 32 bit, where names carry the size of their arguments) it is
# the `ordinary` one.
function(tollvane_late_library name dll ordinary)
  add_library(${name} INTERFACE)
  if(MSVC)
    target_link_libraries(${name} INTERFACE ${ordinary} delayimp)
    target_link_options(${name} INTERFACE /DELAYLOAD:${dll})
    return()
  elseif(NOT CMAKE_SIZEOF_VOID_P EQUAL 8 OR NOT CMAKE_DLLTOOL)
    target_link_libraries(${name} INTERFACE ${ordinary})
    return()
  endif()
  set(definition ${CMAKE_CURRENT_BINARY_DIR}/${name}.def)
  set(library ${CMAKE_CURRENT_BINARY_DIR}/lib${name}.a)
  list(JOIN ARGN "\n" functions)
  file(CONFIGURE OUTPUT ${definition} CONTENT "EXPORTS\n${functions}\n")
  add_custom_command(OUTPUT ${library} DEPENDS ${definition} VERBATIM
    COMMAND ${CMAKE_DLLTOOL} --input-def ${definition} --dllname ${dll} --output-delaylib ${library})
  add_custom_target(${name}_built DEPENDS ${library})
  add_dependencies(${name} ${name}_built)
  target_link_libraries(${name} INTERFACE ${library} delayimp)
endfunction()
