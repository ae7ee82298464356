# What makes an error in memory end the daemon instead of handing it over, as far as the compiler has it. Not
# beside sanitizers, which see the same first. tests/hardening.sh reads it back out of the binaries.

include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

target_compile_options(build_options INTERFACE -fstack-protector-strong -fstack-clash-protection)
target_compile_definitions(build_options INTERFACE _GLIBCXX_ASSERTIONS)
target_link_options(build_options INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)

foreach(flag -fcf-protection -ftrivial-auto-var-init=zero)
  string(MAKE_C_IDENTIFIER "HAVE${flag}" known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    target_compile_options(build_options INTERFACE ${flag})
  endif()
endforeach()

set(CMAKE_REQUIRED_FLAGS "-O2 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3")
check_cxx_source_compiles("#include <features.h>
#if __USE_FORTIFY_LEVEL < 3
#error
#endif
int main() {}" HAVE_FORTIFY_SOURCE_3)
unset(CMAKE_REQUIRED_FLAGS)
if(HAVE_FORTIFY_SOURCE_3)
  set(level 3)
else()
  set(level 2)
endif()
target_compile_options(build_options INTERFACE
  $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${level}>)
