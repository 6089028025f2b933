# Warnings and sanitizers of our own targets; libraries from outside come as system includes.
add_library(htr60_options INTERFACE)
target_compile_options(htr60_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 sees overlaps in std::string's own assignment where there are none (GCC bug 105651).
  target_compile_options(htr60_options INTERFACE -Wno-restrict)
endif()
if(HTR60_WERROR)
  target_compile_options(htr60_options INTERFACE -Werror)
endif()
if(HTR60_SANITIZE)
  target_compile_options(htr60_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
  target_link_options(htr60_options INTERFACE -fsanitize=address,undefined)
endif()
