# What makes a mistake in memory end a program instead of being of use to whoever provoked it. An attempt takes as
# many instructions with all of it as without (docs/reliability.md).
#
# For what is installed and run. Sanitizers have checks of their own, and the checks of the C library need an
# optimised build, which tests are not.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

check_pie_supported()
add_library(quorvane_hardening INTERFACE)
if(CMAKE_BUILD_TYPE MATCHES "^Rel" AND NOT QUORVANE_SANITIZE)
  set(flags -fstack-protector-strong -fstack-clash-protection)
  # Only some processors can check where a jump leads.
  check_cxx_compiler_flag(-fcf-protection QUORVANE_HAS_CF_PROTECTION)
  if(QUORVANE_HAS_CF_PROTECTION)
    list(APPEND flags -fcf-protection)
  endif()
  target_compile_options(quorvane_hardening INTERFACE ${flags} -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  target_compile_definitions(quorvane_hardening INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(quorvane_hardening INTERFACE -Wl,-z,relro,-z,now)
endif()
