if(ZT_ORVEX_SANITIZE)
    add_compile_options(-fsanitize=${ZT_ORVEX_SANITIZE} -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${ZT_ORVEX_SANITIZE})
endif()
if(ZT_ORVEX_BUILD_FUZZERS AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # The engine is guided by the coverage of the library as well as by that of the fuzzer.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(ZT_ORVEX_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()
