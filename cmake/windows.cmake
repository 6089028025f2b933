# What the cross build needs beside the compiler: the JSON headers in a folder of their own, for the whole of
# /usr/include would take the host's headers with it; the icons, and resources.
enable_language(RC)
set(HTR60_JSON_FOLDER /usr/include CACHE PATH "Folder of the nlohmann headers")
if(NOT EXISTS ${HTR60_JSON_FOLDER}/nlohmann/json.hpp)
  message(FATAL_ERROR "No nlohmann/json.hpp in ${HTR60_JSON_FOLDER}: set HTR60_JSON_FOLDER")
endif()
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/json)
file(CREATE_LINK ${HTR60_JSON_FOLDER}/nlohmann ${CMAKE_BINARY_DIR}/json/nlohmann SYMBOLIC)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
target_include_directories(nlohmann_json::nlohmann_json SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/json)

add_compile_definitions(UNICODE _UNICODE _WIN32_WINNT=0x0601)
# The oldest registers of that processor calculate with more digits than a number has, and give other results.
if(HTR60_TRIPLET MATCHES "^i686")
  add_compile_options(-msse2 -mfpmath=sse)
endif()
# Nothing but the system's own libraries is loaded.
add_link_options(-static)

# The icons are drawn by a program of the host's.
include(ExternalProject)
set(HTR60_ICON_FOLDER ${CMAKE_BINARY_DIR}/share/htr60)
set(HTR60_TREE_ICON_FOLDER ${CMAKE_BINARY_DIR}/host/tree_icons)
ExternalProject_Add(htr60_icons
  SOURCE_DIR ${CMAKE_SOURCE_DIR}
  BINARY_DIR ${CMAKE_BINARY_DIR}/host
  CMAKE_ARGS -DCMAKE_BUILD_TYPE=Release -DHTR60_DESKTOP=OFF -DHTR60_TESTS=OFF -DHTR60_BENCH=OFF
  BUILD_COMMAND ${CMAKE_COMMAND} --build <BINARY_DIR> --target htr60_icons htr60_tree_icons
  BUILD_ALWAYS ON
  INSTALL_COMMAND ${CMAKE_COMMAND} -E copy_directory <BINARY_DIR>/share/htr60 ${HTR60_ICON_FOLDER})
