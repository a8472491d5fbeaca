# Warning set and sanitizers for our own targets; call tolvinpt_target(<name>) on each.
set(TOLVINPT_WARNINGS -Wall -Wextra -Wnon-virtual-dtor -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    list(APPEND TOLVINPT_WARNINGS -Wshadow=local) # clang has no such option
endif()
if(TOLVINPT_WERROR)
    list(APPEND TOLVINPT_WARNINGS -Werror)
endif()

if(TOLVINPT_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=address,undefined)
endif()

if(TOLVINPT_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

function(tolvinpt_target target)
    target_compile_options(${target} PRIVATE ${TOLVINPT_WARNINGS})
endfunction()
