# cmake --install: headers, both libraries, a CMake package (find_package(OstrelLibWx), target Ostrel::LibWx) and a
# pkg-config file.
include(CMakePackageConfigHelpers)
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/OstrelLibWx")

set_target_properties(OstrelLib PROPERTIES EXPORT_NAME Lib)
set_target_properties(OstrelLibWx PROPERTIES EXPORT_NAME LibWx)
install(TARGETS OstrelLib OstrelLibWx EXPORT OstrelLibWxTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(DIRECTORY include/ "${PROJECT_BINARY_DIR}/src/generated/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h"
  PATTERN assets EXCLUDE)
install(EXPORT OstrelLibWxTargets NAMESPACE Ostrel:: DESTINATION "${package_dir}")
configure_package_config_file(cmake/OstrelLibWxConfig.cmake.in "${PROJECT_BINARY_DIR}/OstrelLibWxConfig.cmake" INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/OstrelLibWxConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/OstrelLibWxConfig.cmake" "${PROJECT_BINARY_DIR}/OstrelLibWxConfigVersion.cmake"
              cmake/FindOstrelDependencies.cmake DESTINATION "${package_dir}")

if(WIN32)
  # A host needs the toolkit's libraries beside its program.
  install(FILES ${OSTREL_RUNTIME_FILES} DESTINATION "${CMAKE_INSTALL_BINDIR}")
else()
  # wxWidgets has no pkg-config file of its own, so its flags are written down.
  list(JOIN wxWidgets_INCLUDE_DIRS " -isystem " wx_includes)
  list(TRANSFORM wxWidgets_DEFINITIONS PREPEND -D OUTPUT_VARIABLE wx_definitions)
  list(JOIN wx_definitions " " wx_definitions)
  list(JOIN wxWidgets_LIBRARIES " " wx_libraries)
  set(OSTREL_PC_CFLAGS "-isystem ${wx_includes} ${wx_definitions}")
  set(OSTREL_PC_LIBS "${wx_libraries}")
  configure_file(cmake/ostrellibwx.pc.in "${PROJECT_BINARY_DIR}/ostrellibwx.pc.in" @ONLY)
  # The prefix is the one given when it is installed.
  install(CODE "file(READ \"${PROJECT_BINARY_DIR}/ostrellibwx.pc.in\" text)
    string(REPLACE \"%PREFIX%\" \"\${CMAKE_INSTALL_PREFIX}\" text \"\${text}\")
    file(WRITE \"${PROJECT_BINARY_DIR}/ostrellibwx.pc\" \"\${text}\")")
  install(FILES "${PROJECT_BINARY_DIR}/ostrellibwx.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endif()
