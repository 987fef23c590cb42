# How every target of this tree is built.

# ostrel_sources(VARIABLE FOLDER...): the sources of the folders, and of their platform folder for this platform.
macro(ostrel_sources variable)
  set(${variable} "")
  foreach(folder ${ARGN})
    file(GLOB found CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.h"
         "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/platform/${OSTREL_PLATFORM}/*.cpp")
    list(APPEND ${variable} ${found})
  endforeach()
endmacro()

function(ostrel_target target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /utf-8 $<$<BOOL:${OSTREL_WARNINGS_AS_ERRORS}>:/WX>)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wshadow -Wconversion $<$<BOOL:${OSTREL_WARNINGS_AS_ERRORS}>:-Werror>)
    # A library's own calls stay inside it, so that they can be inlined.
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  endif()
  if(WIN32)
    target_compile_definitions(${target} PRIVATE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0A00 _WIN32_WINNT=0x0A00)
  endif()
endfunction()

# ostrel_windows_resources(TARGET): the manifest by which a program declares itself DPI-aware and asks for the themed
# controls. A program's affair, never the library's.
function(ostrel_windows_resources target)
  if(WIN32)
    target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/assets/windows/program.rc")
  endif()
endfunction()

# ostrel_deploy_runtime(): puts the libraries that a Windows program needs beside the programs.
function(ostrel_deploy_runtime)
  set(files "")
  foreach(target wx::net wx::core wx::base)
    list(APPEND files "$<TARGET_FILE:${target}>")
  endforeach()
  foreach(name libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${name} OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT EXISTS "${path}")
      # The threads library belongs to the C runtime, outside the compiler's own folders.
      find_file(OSTREL_RUNTIME_${name} ${name} PATHS /usr/x86_64-w64-mingw32 PATH_SUFFIXES lib bin NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
      set(path "${OSTREL_RUNTIME_${name}}")
    endif()
    list(APPEND files "${path}")
  endforeach()
  find_file(OSTREL_ZLIB_DLL zlib1.dll PATHS /usr/x86_64-w64-mingw32 PATH_SUFFIXES lib bin NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  if(OSTREL_ZLIB_DLL)
    list(APPEND files "${OSTREL_ZLIB_DLL}")
  endif()
  add_custom_target(deploy_runtime ALL
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}"
    COMMAND "${CMAKE_COMMAND}" -E copy_if_different ${files} "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}"
    COMMENT "Putting the run-time libraries beside the programs" VERBATIM)
  set(OSTREL_RUNTIME_FILES "${files}" PARENT_SCOPE)
endfunction()
