# Warnings and sanitizers of our own targets; libraries from outside come as system includes.
add_library(htr60_options INTERFACE)
target_compile_options(htr60_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(HTR60_WERROR)
  target_compile_options(htr60_options INTERFACE -Werror)
endif()
if(HTR60_SANITIZE)
  target_compile_options(htr60_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer -O1)
  target_link_options(htr60_options INTERFACE -fsanitize=address,undefined)
endif()
