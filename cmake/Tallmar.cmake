# One floor: a static library of every source file of its folder, over the floors named.
function(tallmar_floor name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC tallmar_options ${ARGN})
  if(folder MATCHES "^(screens/(view|edit)|shell)$")
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  endif()
endfunction()

# Headers that all tests of a kind include, read once for all their programs.
function(tallmar_test_headers name libraries)
  add_library(${name} STATIC ${CMAKE_SOURCE_DIR}/tests/support/headers.cpp)
  target_link_libraries(${name} PRIVATE tallmar_options GTest::gtest ${libraries})
  target_compile_options(${name} PRIVATE -O0)
  target_precompile_headers(${name} PRIVATE <gtest/gtest.h> ${ARGN})
endfunction()

# Tests compile unoptimized whatever the preset, since what they test is in the libraries.
function(tallmar_compile_as_tests name headers)
  target_compile_options(${name} PRIVATE -O0)
  target_precompile_headers(${name} REUSE_FROM ${headers})
endfunction()

# Where programs that tests start keep what is the user's; tests/home.sh sees to it that it stays empty.
set(kTestDataHome ${CMAKE_BINARY_DIR}/test-data-home)

# The tests of one folder: one program, one ctest name a test.
function(tallmar_tests name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*_test.cpp)
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${ARGN} GTest::gtest GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE TALLMAR_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
                             TALLMAR_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  tallmar_compile_as_tests(${name} tallmar_test_headers)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120
                       PROPERTIES TIMEOUT 300 ENVIRONMENT XDG_DATA_HOME=${kTestDataHome} FIXTURES_REQUIRED home)
endfunction()

# The same on Qt: a main of its own gives the program a desktop without a display, settings and a home.
function(tallmar_desktop_tests name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*_test.cpp)
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${ARGN} tallmar_test_desktop GTest::gtest GTest::gmock Qt6::Test)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE TALLMAR_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
                             TALLMAR_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  tallmar_compile_as_tests(${name} tallmar_desktop_test_headers)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120
                       PROPERTIES TIMEOUT 300 ENVIRONMENT QT_QPA_PLATFORM=offscreen)
endfunction()
