# What nearly every unit includes, compiled once: the standard library's large headers, and the libraries whose headers
# take longer than our own code.
set(PYXIS_STD_HEADERS <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <span> <string> <string_view>
    <vector>)

# pyxis_precompile(TARGET [HEADER...]): with headers of its own it gets its own; the others of src/ share the first one's.
function(pyxis_precompile target)
  get_property(owner GLOBAL PROPERTY pyxis_plain_headers)
  if(ARGN)
    target_precompile_headers(${target} PRIVATE ${PYXIS_STD_HEADERS} ${ARGN})
  elseif(owner)
    target_precompile_headers(${target} REUSE_FROM ${owner})
  else()
    target_precompile_headers(${target} PRIVATE ${PYXIS_STD_HEADERS})
    set_property(GLOBAL PROPERTY pyxis_plain_headers ${target})
  endif()
endfunction()
