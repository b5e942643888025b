# tabulorix_layer(NAME SOURCES file... BELOW layer...)
#
# One library of one folder. Its own headers and those of the layers below it are what it can
# include. A source NAME_posix.cpp or NAME_win32.cpp is taken only where it belongs: list the pair as
# NAME_platform.cpp.

if(WIN32)
  set(TABULORIX_PLATFORM win32)
else()
  set(TABULORIX_PLATFORM posix)
endif()

function(tabulorix_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;BELOW" ${ARGN})
  list(TRANSFORM LAYER_SOURCES REPLACE "_platform\\.cpp$" "_${TABULORIX_PLATFORM}.cpp")
  add_library(${name} STATIC ${LAYER_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${LAYER_BELOW})
endfunction()
