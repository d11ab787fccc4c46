# -DFACTORYDEBUG_SANITIZE="address;undefined" builds everything with these sanitizers.
set(FACTORYDEBUG_SANITIZE "" CACHE STRING "Sanitizers to build with, for example address;undefined")

if(FACTORYDEBUG_SANITIZE)
    list(JOIN FACTORYDEBUG_SANITIZE "," sanitizers)
    add_compile_options(-fsanitize=${sanitizers} -fno-omit-frame-pointer
                        -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=${sanitizers})
endif()
