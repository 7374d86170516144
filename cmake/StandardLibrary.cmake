# Whether the compiler uses libc++. Its names are in another inline namespace than those of libstdc++,
# and so are the names of functions that take its classes.
include(CheckCXXSourceCompiles)
check_cxx_source_compiles("
#include <string>
#if !defined(_LIBCPP_VERSION)
#error \"another standard library\"
#endif
int main() {}" ZT_ORVEX_HAS_LIBCXX)
