# The JVM binding, where SWIG and a JDK are installed: its wrapper becomes part of the library, and the Java side two
# archives, zr-platform.jar and the exceptions of the hosting IDE, which a host replaces by its own. Sources and
# documentation of the former are archives beside it.
set(zr_jvm_dir ${PROJECT_SOURCE_DIR}/src/shared/platform/src/platform_auto_wrap)
set(ZR_JVM OFF)
find_package(SWIG 4.1 COMPONENTS java QUIET)
find_package(Java 17 COMPONENTS Development QUIET)
if(Java_FOUND)
  get_filename_component(zr_javac ${Java_JAVAC_EXECUTABLE} REALPATH)
  get_filename_component(zr_jdk ${zr_javac}/../.. ABSOLUTE)
  find_path(ZR_JNI_INCLUDE jni.h HINTS ${zr_jdk}/include NO_DEFAULT_PATH)
  find_path(ZR_JNI_MD_INCLUDE jni_md.h HINTS ${zr_jdk}/include/linux NO_DEFAULT_PATH)
endif()
if(NOT SWIG_FOUND OR NOT Java_FOUND OR NOT ZR_JNI_INCLUDE OR NOT ZR_JNI_MD_INCLUDE)
  message(STATUS "The JVM binding is left out: it needs SWIG 4.1 and a JDK 17 (packages.txt)")
  return()
endif()
set(ZR_JVM ON)
set(ZR_JNI_INCLUDES ${ZR_JNI_INCLUDE} ${ZR_JNI_MD_INCLUDE})

set(zr_jvm_out ${PROJECT_BINARY_DIR}/jvm)
set(zr_jvm_wrapper ${zr_jvm_out}/wrapper.cpp)
file(GLOB zr_jvm_interfaces CONFIGURE_DEPENDS ${zr_jvm_dir}/*.i)
file(GLOB_RECURSE zr_jvm_java CONFIGURE_DEPENDS ${zr_jvm_dir}/java/*.java)
file(GLOB_RECURSE zr_jvm_exceptions CONFIGURE_DEPENDS ${zr_jvm_dir}/exceptions/*.java)

# 516: of two overloads that differ only in const or in pointer and reference, Java has one.
set(zr_jvm_package ${zr_jvm_out}/java/ui/data/platform)
add_custom_command(OUTPUT ${zr_jvm_wrapper}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${zr_jvm_out}/java
    COMMAND ${CMAKE_COMMAND} -E make_directory ${zr_jvm_package}
    COMMAND ${SWIG_EXECUTABLE} -c++ -java -Werror -w516 -package ui.data.platform -I${PROJECT_SOURCE_DIR}/include
        -outdir ${zr_jvm_package} -o ${zr_jvm_wrapper} binding.i
    WORKING_DIRECTORY ${zr_jvm_dir} VERBATIM
    DEPENDS ${zr_jvm_interfaces} ${PROJECT_SOURCE_DIR}/include/platform/HTEQPfmFileTypes.h
        ${PROJECT_SOURCE_DIR}/include/platform/HwMetadataMode.h)
add_library(zr_jvm OBJECT ${zr_jvm_wrapper} ${zr_jvm_dir}/JniSupport.cpp)
target_link_libraries(zr_jvm PRIVATE zr_options)
target_include_directories(zr_jvm SYSTEM PRIVATE ${ZR_JNI_INCLUDES})
# The wrapper reads handles as pointers through casts.
set_source_files_properties(${zr_jvm_wrapper} PROPERTIES COMPILE_OPTIONS "-fno-strict-aliasing;-w")

# The archives. A version is in their manifests; the modules have a fixed name, but no descriptor: docs/java.md says why.
function(zr_jvm_manifest file module)
  file(WRITE ${zr_jvm_out}/${file} "Automatic-Module-Name: ${module}\nImplementation-Title: zr_platform\n"
      "Implementation-Version: ${PROJECT_VERSION}\n")
endfunction()
zr_jvm_manifest(manifest.txt ui.data.platform)
zr_jvm_manifest(manifest-exceptions.txt ui.frmwork)

set(zr_jvm_exceptions_jar ${zr_jvm_out}/zr-platform-exceptions.jar)
add_custom_command(OUTPUT ${zr_jvm_exceptions_jar}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${zr_jvm_out}/exceptions
    COMMAND ${Java_JAVAC_EXECUTABLE} -Xlint:all -Werror --release 17 -d ${zr_jvm_out}/exceptions ${zr_jvm_exceptions}
    COMMAND ${Java_JAR_EXECUTABLE} --create --file ${zr_jvm_exceptions_jar}
        --manifest ${zr_jvm_out}/manifest-exceptions.txt -C ${zr_jvm_out}/exceptions .
    DEPENDS ${zr_jvm_exceptions} VERBATIM)
set(zr_jvm_jars ${zr_jvm_out}/zr-platform.jar ${zr_jvm_out}/zr-platform-sources.jar ${zr_jvm_out}/zr-platform-javadoc.jar)
add_custom_command(OUTPUT ${zr_jvm_jars}
    COMMAND sh ${PROJECT_SOURCE_DIR}/cmake/jars.sh ${Java_JAVAC_EXECUTABLE} ${Java_JAR_EXECUTABLE}
        ${Java_JAVADOC_EXECUTABLE} ${zr_jvm_out} ${zr_jvm_dir}/java ${zr_jvm_exceptions_jar} ${PROJECT_VERSION}
    DEPENDS ${zr_jvm_wrapper} ${zr_jvm_java} ${zr_jvm_exceptions_jar} ${PROJECT_SOURCE_DIR}/cmake/jars.sh VERBATIM)
add_custom_target(zr_jvm_jars ALL DEPENDS ${zr_jvm_jars} ${zr_jvm_exceptions_jar})
install(FILES ${zr_jvm_jars} ${zr_jvm_exceptions_jar} DESTINATION ${CMAKE_INSTALL_DATADIR}/java)
