# AddLayer(NAME SOURCES file... [SEES layer...]): a library of this folder, on top of the layers that it
# sees. Its include path holds a link to its own folder and to theirs and nothing else, so an include of a layer
# above does not compile.
function(AddLayer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;SEES" ${ARGN})
  set(path ${PROJECT_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${path})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${path}/${name} SYMBOLIC)
  add_library(${name} ${LAYER_SOURCES})
  target_include_directories(${name} PUBLIC ${path})
  target_link_libraries(${name} PUBLIC ${LAYER_SEES})
endfunction()
