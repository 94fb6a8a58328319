# Every target of ours is built with these; foreign headers come in as system headers.
add_library(pyxis_warnings INTERFACE)
target_compile_options(pyxis_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
