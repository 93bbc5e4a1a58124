# GTest::gmock_main: the installed GoogleTest, or for another system than this one GoogleTest's sources built for it.
if(CMAKE_CROSSCOMPILING)
  set(KIV_GOOGLETEST_SOURCES /usr/src/googletest CACHE PATH "GoogleTest's sources, for a system that has no GoogleTest")
  add_subdirectory(${KIV_GOOGLETEST_SOURCES} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
else()
  find_package(GTest REQUIRED)
endif()
