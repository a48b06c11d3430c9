# tollvane_add_resources(TARGET): gives an executable the program's icon, manifest, version and
# string table.
set(TOLLVANE_RESOURCES ${CMAKE_CURRENT_LIST_DIR})

function(tollvane_add_resources target)
  set(script ${CMAKE_CURRENT_BINARY_DIR}/tollvane.rc)
  configure_file(${TOLLVANE_RESOURCES}/tollvane.rc.in ${script} @ONLY)
  set(parts tollvane.ico tollvane.manifest StateStrings.inc)
  list(TRANSFORM parts PREPEND ${TOLLVANE_RESOURCES}/)
  set_source_files_properties(${script} PROPERTIES
    INCLUDE_DIRECTORIES ${TOLLVANE_RESOURCES}
    OBJECT_DEPENDS "${parts}")
  target_sources(${target} PRIVATE ${script})
endfunction()
