# The shared library itself, its installation, its CMake package and its pkg-config file.
list(GET ZR_ROOMS -1 zr_last_room)
zr_objects_up_to(${zr_last_room} zr_objects)

set(zr_exports ${PROJECT_SOURCE_DIR}/cmake/exports.map)
if(ZR_JVM)
  list(APPEND zr_objects $<TARGET_OBJECTS:zr_jvm>)
endif()
add_library(zr_platform SHARED ${zr_objects})
if(ZR_JVM)
  add_dependencies(zr_platform zr_jvm_jars)
endif()
target_link_libraries(zr_platform PRIVATE $<BUILD_INTERFACE:zr_options>)
# References of the library to its own symbols need no search at its start, except to the data that hosts may set.
target_link_options(zr_platform PRIVATE -Wl,--version-script=${zr_exports} -Wl,--as-needed -Wl,-z,defs
    -Wl,--dynamic-list=${PROJECT_SOURCE_DIR}/cmake/shared-data.list)
if(ZR_SANITIZE)
  set_target_properties(zr_platform PROPERTIES LINK_OPTIONS "-Wl,--version-script=${zr_exports}")
endif()
set_target_properties(zr_platform PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINK_DEPENDS ${zr_exports})
target_include_directories(zr_platform PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/zr_platform>)
target_compile_features(zr_platform PUBLIC cxx_std_20)

file(GLOB_RECURSE zr_headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/*.h
    ${PROJECT_SOURCE_DIR}/include/*.hpp)
target_sources(zr_platform PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/include FILES ${zr_headers})
set_target_properties(zr_platform PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)

install(TARGETS zr_platform EXPORT zr_platformTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zr_platform)
install(EXPORT zr_platformTargets NAMESPACE zr_platform:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zr_platform)

include(CMakePackageConfigHelpers)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/zr_platformConfig.cmake.in
    ${PROJECT_BINARY_DIR}/zr_platformConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zr_platform)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zr_platformConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zr_platformConfig.cmake ${PROJECT_BINARY_DIR}/zr_platformConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zr_platform)
file(RELATIVE_PATH zr_include_from_pc ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_FULL_INCLUDEDIR})
configure_file(${PROJECT_SOURCE_DIR}/cmake/zr_platform.pc.in ${PROJECT_BINARY_DIR}/zr_platform.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zr_platform.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES ${PROJECT_SOURCE_DIR}/share/platforms/platform_keys_doc.json
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zr_platform/platforms)
