# What nearly every unit includes, compiled once a target: the standard library's large headers, and the libraries whose
# headers take longer than our own code.
set(PYXIS_STD_HEADERS <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <span> <string> <string_view>
    <vector>)

function(pyxis_precompile target)
  target_precompile_headers(${target} PRIVATE ${PYXIS_STD_HEADERS} ${ARGN})
endfunction()
