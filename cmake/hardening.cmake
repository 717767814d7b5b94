# A build for players is hardened as Debian hardens its packages, on systems too whose compiler does not do so by itself.
set(for_players $<NOT:$<CONFIG:Debug>>)
add_compile_options("$<${for_players}:-fstack-protector-strong;-fPIE>")
add_link_options("$<${for_players}:-fPIE;-pie;-Wl,-z,relro;-Wl,-z,now>")
# A packager who brings flags of his own sets the build type None, as Debian's tools do, and chooses this for himself.
add_compile_options("$<$<NOT:$<CONFIG:Debug,None>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
# These two are not known for every processor.
include(CheckCXXCompilerFlag)
foreach(flag stack-clash-protection cf-protection)
  check_cxx_compiler_flag(-f${flag} HAVE_${flag})
  if(HAVE_${flag})
    add_compile_options("$<${for_players}:-f${flag}>")
  endif()
endforeach()
