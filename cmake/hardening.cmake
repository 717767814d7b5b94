# A build for players is hardened as Debian hardens its packages, on systems too whose compiler does not do so by itself.
# A packager who brings flags of his own sets the build type None, as Debian's tools do, and these stay out.
set(hardened $<NOT:$<CONFIG:Debug,None>>)
add_compile_options("$<${hardened}:-fstack-protector-strong;-fPIE;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
add_link_options("$<${hardened}:-pie;-Wl,-z,relro;-Wl,-z,now>")
# These two are not known for every processor.
include(CheckCXXCompilerFlag)
foreach(flag stack-clash-protection cf-protection)
  check_cxx_compiler_flag(-f${flag} HAVE_${flag})
  if(HAVE_${flag})
    add_compile_options("$<${hardened}:-f${flag}>")
  endif()
endforeach()
