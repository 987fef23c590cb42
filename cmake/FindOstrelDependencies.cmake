# What the two libraries lean on, as targets that are the same on both platforms:
#   Ostrel::wx        wxWidgets 3.2, base, core and net
#   Ostrel::expected  tl::expected, headers only
#   Ostrel::desktop   Linux: GTK 3 on X11; elsewhere empty, the system's own libraries need no search
# Installed beside the package of OstrelLibWx, which finds the same things with it.
include(FindPackageHandleStandardArgs)
include(CMakeFindDependencyMacro)

if(NOT TARGET Ostrel::expected)
  find_path(OSTREL_EXPECTED_INCLUDE_DIR tl/expected.hpp)
  mark_as_advanced(OSTREL_EXPECTED_INCLUDE_DIR)
  add_library(Ostrel::expected INTERFACE IMPORTED)
  target_include_directories(Ostrel::expected SYSTEM INTERFACE "${OSTREL_EXPECTED_INCLUDE_DIR}")
endif()

if(NOT TARGET Ostrel::wx)
  add_library(Ostrel::wx INTERFACE IMPORTED)
  if(WIN32)
    # wxWidgets' own CMake package.
    find_package(wxWidgets 3.2 CONFIG COMPONENTS net core base)
    if(wxWidgets_FOUND)
      target_link_libraries(Ostrel::wx INTERFACE wx::net wx::core wx::base)
    endif()
  else()
    # The distribution's package has no CMake package; CMake's module asks wx-config.
    find_package(wxWidgets 3.2 MODULE COMPONENTS net core base)
    if(wxWidgets_FOUND)
      target_include_directories(Ostrel::wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
      target_compile_definitions(Ostrel::wx INTERFACE ${wxWidgets_DEFINITIONS})
      target_compile_options(Ostrel::wx INTERFACE ${wxWidgets_CXX_FLAGS})
      target_link_directories(Ostrel::wx INTERFACE ${wxWidgets_LIBRARY_DIRS})
      target_link_libraries(Ostrel::wx INTERFACE ${wxWidgets_LIBRARIES})
    endif()
  endif()
endif()

if(NOT TARGET Ostrel::desktop)
  add_library(Ostrel::desktop INTERFACE IMPORTED)
  if(NOT WIN32)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(OSTREL_GTK REQUIRED IMPORTED_TARGET gtk+-x11-3.0 x11)
    target_link_libraries(Ostrel::desktop INTERFACE PkgConfig::OSTREL_GTK ${CMAKE_DL_LIBS})
  endif()
endif()

find_package_handle_standard_args(OstrelDependencies REQUIRED_VARS wxWidgets_FOUND OSTREL_EXPECTED_INCLUDE_DIR)
