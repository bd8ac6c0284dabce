# With VANTLE_FUZZ every target is compiled with libFuzzer's coverage
# instrumentation and the Address and UB sanitizers, so that the fuzzers are
# guided through the core's code and stop at the first error found in it.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "VANTLE_FUZZ needs clang (configure with the fuzz preset)")
endif()
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
add_link_options(-fsanitize=address,undefined)
