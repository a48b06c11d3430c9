# What an installation consists of. Building "shipped" builds it; the install component "shipped"
# gathers it in one folder.
include_guard(GLOBAL)
if(NOT WIN32)
  return()
endif()

add_custom_target(shipped)
foreach(target Tollvane zendacard habitat dcZenda32 Norrow_About LogLens)
  if(TARGET ${target})
    add_dependencies(shipped ${target})
    install(TARGETS ${target} RUNTIME DESTINATION . COMPONENT shipped)
  endif()
endforeach()

# The pages that the help commands open, with their pictures: beside the program.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/help/ DESTINATION . COMPONENT shipped
  FILES_MATCHING PATTERN "*.htm" PATTERN "*.css" PATTERN "*.png")
