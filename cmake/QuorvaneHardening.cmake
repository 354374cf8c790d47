# Options that turn exploitable memory errors into aborts. They do not slow down the engine (docs/reliability.md).
#
# For optimised builds of installed targets: sanitizers have their own checks, and _FORTIFY_SOURCE needs
# optimisation, which the tests are built without.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

check_pie_supported()
add_library(quorvane_hardening INTERFACE)
if(CMAKE_BUILD_TYPE MATCHES "^Rel" AND NOT QUORVANE_SANITIZE)
  set(flags -fstack-protector-strong -fstack-clash-protection)
  # Only for x86; other processors have other options.
  check_cxx_compiler_flag(-fcf-protection QUORVANE_HAS_CF_PROTECTION)
  if(QUORVANE_HAS_CF_PROTECTION)
    list(APPEND flags -fcf-protection)
  endif()
  target_compile_options(quorvane_hardening INTERFACE ${flags} -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  target_compile_definitions(quorvane_hardening INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(quorvane_hardening INTERFACE -Wl,-z,relro,-z,now)
endif()
