# Settings that every target of this project shares: warnings as errors, and the sanitizers asked for.
add_library(kalodata_options INTERFACE)
if(MSVC)
    # The C functions in use are the documented ones.
    target_compile_options(kalodata_options INTERFACE /W4 /WX /utf-8)
    target_compile_definitions(kalodata_options INTERFACE NOMINMAX _CRT_SECURE_NO_WARNINGS)
    return()
endif()
target_compile_options(kalodata_options INTERFACE
    -Wall -Wextra -Werror -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual)
if(KALODATA_SANITIZE)
    target_compile_options(kalodata_options INTERFACE
        -fsanitize=${KALODATA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(kalodata_options INTERFACE -fsanitize=${KALODATA_SANITIZE})
endif()
