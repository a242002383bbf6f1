# What our own targets are compiled with. Users of the library inherit none of it.
add_library(tesk_build_options INTERFACE)
target_compile_options(tesk_build_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wdouble-promotion -Wsuggest-override
    # The written order of single-precision operations is the result.
    -ffp-contract=off)
if(TESK_SANITIZE)
    target_compile_options(tesk_build_options INTERFACE
        -fsanitize=${TESK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
        # Division by zero is a result here.
        -fno-sanitize=float-divide-by-zero)
    target_link_options(tesk_build_options INTERFACE -fsanitize=${TESK_SANITIZE})
endif()
