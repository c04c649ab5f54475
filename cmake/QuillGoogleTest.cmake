# quill_gtest_main: GoogleTest and GoogleMock with their main function. Natively the packaged
# library; for Windows it is built once from the packaged sources, because no binary exists.

add_library(quill_gtest_main INTERFACE)
if(WIN32)
  set(QUILL_GOOGLETEST_SOURCES "/usr/src/googletest" CACHE PATH "Sources of GoogleTest")
  set(BUILD_GMOCK ON CACHE INTERNAL "")
  set(INSTALL_GTEST OFF CACHE INTERNAL "")
  set(gtest_disable_pthreads ON CACHE INTERNAL "")
  add_subdirectory("${QUILL_GOOGLETEST_SOURCES}" "${PROJECT_BINARY_DIR}/googletest"
                   EXCLUDE_FROM_ALL SYSTEM)
  target_compile_definitions(gtest PUBLIC GTEST_HAS_NOTIFICATION_=1)
  target_compile_options(gtest PUBLIC
    -include "${PROJECT_SOURCE_DIR}/tests/googletest_notification.h")
  target_link_libraries(quill_gtest_main INTERFACE gmock gtest_main gtest)
else()
  find_package(GTest REQUIRED)
  include(GoogleTest)
  target_link_libraries(quill_gtest_main INTERFACE GTest::gmock GTest::gtest_main GTest::gtest)
endif()
