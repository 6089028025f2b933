# What a program for others is built with, so that an overrun ends it instead of serving whoever caused it: checked
# stacks and library calls, addresses by chance, and nothing in the tables of the linker left to be written to.
if(NOT HTR60_SANITIZE AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
  set(released $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  target_compile_options(htr60_options INTERFACE
    "$<${released}:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2;-fPIE>")
  target_link_options(htr60_options INTERFACE "$<${released}:-pie;LINKER:-z,relro,-z,now>")
endif()
