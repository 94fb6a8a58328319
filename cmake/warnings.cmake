# Every target of ours is built with these; foreign headers come in as system headers.
add_library(pyxis_warnings INTERFACE)
# No field of an IC's record has a default: a row that forgets one must not compile. Some compilers say nothing of a field
# that designated initialisers leave out; they are good enough for the fuzz targets alone.
include(CheckCXXSourceCompiles)
set(CMAKE_REQUIRED_FLAGS "-Wextra -Werror")
check_cxx_source_compiles("struct Row { int a, b; }; Row row{.a = 1}; int main() { return row.b; }" PYXIS_FORGETFUL_ROWS)
unset(CMAKE_REQUIRED_FLAGS)
if(PYXIS_FORGETFUL_ROWS AND NOT PYXIS_FUZZ)
  message(FATAL_ERROR "This compiler takes a row that leaves a field out; g++ doesn't.")
endif()
target_compile_options(pyxis_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
