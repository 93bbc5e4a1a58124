# kiv_library(NAME SOURCES ... LINKS ...): one static library for one folder. A folder can use exactly what it links.
function(kiv_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_link_libraries(${name} PUBLIC ${arg_LINKS} PRIVATE kiv_warnings)
endfunction()
