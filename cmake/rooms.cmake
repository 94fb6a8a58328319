# pyxis_room(NAME FILES PATTERN... [EXCLUDE PATTERN...] [DEPENDS TARGET...]): a static library of files of src/, given by
# patterns relative to src/. Its headers and its units are reached through a folder of links of its own, so a unit can
# include the headers of its own room and of those that the room depends on, and no other, neither from src/ nor from the
# folder beside it: a wrong include doesn't compile.
function(pyxis_room name)
  cmake_parse_arguments(PARSE_ARGV 1 room "" "" "FILES;EXCLUDE;DEPENDS")
  set(files)
  foreach(pattern IN LISTS room_FILES)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/src/${pattern})
    list(APPEND files ${found})
  endforeach()
  foreach(pattern IN LISTS room_EXCLUDE)
    list(FILTER files EXCLUDE REGEX "^${pattern}$")
  endforeach()
  set(doors ${CMAKE_BINARY_DIR}/rooms/${name})
  file(REMOVE_RECURSE ${doors})
  set(sources)
  foreach(file IN LISTS files)
    list(APPEND sources ${doors}/${file})
    get_filename_component(folder ${doors}/${file} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${file} ${doors}/${file} SYMBOLIC)
  endforeach()
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${doors})
  target_link_libraries(${name} PUBLIC ${room_DEPENDS} PRIVATE pyxis_warnings)
endfunction()

# pyxis_logic(...): the same for a room of the logic, which knows nothing of windows and wires: the libraries' own
# identifiers are poisoned in it, and their headers don't compile.
function(pyxis_logic name)
  pyxis_room(${name} ${ARGN})
  get_property(owner GLOBAL PROPERTY pyxis_logic_headers)  # compiled once, by the first room
  if(owner)
    target_precompile_headers(${name} REUSE_FROM ${owner})
  else()
    target_precompile_headers(${name} PRIVATE ${PYXIS_STD_HEADERS} ${CMAKE_SOURCE_DIR}/cmake/no_windows_no_wires.h)
    set_property(GLOBAL PROPERTY pyxis_logic_headers ${name})
  endif()
endfunction()
