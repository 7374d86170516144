if(ZT_ORVEX_SANITIZE)
    add_compile_options(-fsanitize=${ZT_ORVEX_SANITIZE} -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${ZT_ORVEX_SANITIZE})
endif()
if(ZT_ORVEX_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()
