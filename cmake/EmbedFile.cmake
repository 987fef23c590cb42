# ostrel_embed_assets(TARGET FILE...): makes each file a constant array of the target.
# assets/product-icon.png becomes "assets/ProductIcon.h", which declares PRODUCT_ICON and PRODUCT_ICON_SIZE in
# Ostrel::Detail::Assets. The array is written anew whenever the file changes.
function(ostrel_embed_assets target)
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/generated")
  foreach(file IN LISTS ARGN)
    get_filename_component(stem "${file}" NAME_WE)
    string(REPLACE "-" ";" words "${stem}")
    set(className "")
    foreach(word IN LISTS words)
      string(SUBSTRING "${word}" 0 1 first)
      string(SUBSTRING "${word}" 1 -1 rest)
      string(TOUPPER "${first}" first)
      string(APPEND className "${first}${rest}")
    endforeach()
    string(REPLACE "-" "_" constant "${stem}")
    string(TOUPPER "${constant}" constant)
    set(output "${folder}/assets/${className}")
    add_custom_command(
      OUTPUT "${output}.cpp" "${output}.h"
      COMMAND "${CMAKE_COMMAND}" "-DINPUT=${file}" "-DOUTPUT=${output}" "-DCONSTANT=${constant}" "-DNAME=${className}"
              -P "${PROJECT_SOURCE_DIR}/cmake/WriteEmbeddedFile.cmake"
      DEPENDS "${file}" "${PROJECT_SOURCE_DIR}/cmake/WriteEmbeddedFile.cmake"
      COMMENT "Embedding ${stem}" VERBATIM)
    target_sources(${target} PRIVATE "${output}.cpp" "${output}.h")
    set_source_files_properties("${output}.cpp" PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
  endforeach()
  target_include_directories(${target} PRIVATE "${folder}")
endfunction()
