# kiv_kinds_library(NAME KIND ...): the library as a host links it. KIND is a folder with a target kiv_KIND and a
# KIND_studies.h, whose KindStudies() is the kind's table entry. Whoever links NAME has all the kinds, in this order,
# without a call: an object of its own registers them.
function(kiv_kinds_library name)
  set(kiv_kind_includes "")
  set(kiv_kind_registrations "")
  foreach(kind ${ARGN})
    string(SUBSTRING ${kind} 0 1 initial)
    string(SUBSTRING ${kind} 1 -1 rest)
    string(TOUPPER ${initial} initial)
    string(APPEND kiv_kind_includes "#include \"${kind}/${kind}_studies.h\"\n")
    string(APPEND kiv_kind_registrations "  RegisterStudyKind(${initial}${rest}Studies());\n")
  endforeach()
  list(TRANSFORM ARGN PREPEND kiv_ OUTPUT_VARIABLE libraries)

  configure_file(${PROJECT_SOURCE_DIR}/cmake/known_kinds.cpp.in ${PROJECT_BINARY_DIR}/known_kinds.cpp @ONLY)
  add_library(kiv_known_kinds OBJECT ${PROJECT_BINARY_DIR}/known_kinds.cpp)
  target_link_libraries(kiv_known_kinds PUBLIC ${libraries} PRIVATE kiv_warnings)

  add_library(${name} INTERFACE)
  target_link_libraries(${name} INTERFACE ${libraries})
  target_sources(${name} INTERFACE $<TARGET_OBJECTS:kiv_known_kinds>)
endfunction()
