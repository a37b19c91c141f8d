# Precompiled headers for the rooms and for the tests, a third of the time of a build. They hold headers of others only:
# what this project includes, each file still has to include. Builds without our presets go without them.
set(zr_pch_std <algorithm> <filesystem> <functional> <map> <memory> <optional> <set> <sstream> <string> <variant>
    <vector> <boost/property_tree/ptree.hpp>)
if(ZR_PCH)
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/precompiled.cpp CONTENT "int main() {}\n")
  add_library(zr_pch_room OBJECT ${PROJECT_BINARY_DIR}/precompiled.cpp)
  target_link_libraries(zr_pch_room PRIVATE zr_options)
  target_precompile_headers(zr_pch_room PRIVATE ${zr_pch_std})
endif()

# Objects of a library and of a program differ, and so do their headers. What is defined here, each test has to define.
function(zr_add_test_pch)
  if(ZR_PCH)
    add_executable(zr_pch_test ${PROJECT_BINARY_DIR}/precompiled.cpp)
    target_link_libraries(zr_pch_test PRIVATE GTest::gtest GTest::gmock)
    target_include_directories(zr_pch_test SYSTEM PRIVATE ${Boost_INCLUDE_DIRS})
    target_compile_options(zr_pch_test PRIVATE $<TARGET_PROPERTY:zr_options,INTERFACE_COMPILE_OPTIONS>)
    target_link_options(zr_pch_test PRIVATE $<TARGET_PROPERTY:zr_options,INTERFACE_LINK_OPTIONS>)
    target_precompile_headers(zr_pch_test PRIVATE ${zr_pch_std} <gmock/gmock.h> <gtest/gtest.h>)
  endif()
endfunction()

# zr_precompile(room|test TARGET)
function(zr_precompile kind target)
  if(ZR_PCH)
    target_precompile_headers(${target} REUSE_FROM zr_pch_${kind})
  endif()
endfunction()
