# What lands where: programs in bin, the window program and the libraries in lib/pyxisload, the data in share/pyxisload.
# Two components, one a package: the program itself, and the stand-in writer for work without the hardware.
set(lib lib/pyxisload)
set(share ${CMAKE_INSTALL_DATADIR})

set(main COMPONENT pyxisload)
install(TARGETS pyxisload DESTINATION ${lib} ${main})
install(CODE "file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin\")
  file(CREATE_LINK ../${lib}/pyxisload \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin/pyxisload\" SYMBOLIC)" ${main})
install(TARGETS pyxisjob pyxisfolder DESTINATION bin ${main})
install(DIRECTORY ${CMAKE_BINARY_DIR}/data/ DESTINATION ${share}/pyxisload ${main})
install(DIRECTORY ${CMAKE_BINARY_DIR}/icons/ DESTINATION ${share}/icons/hicolor ${main})
install(FILES packaging/pyxisload.desktop DESTINATION ${share}/applications ${main})
install(FILES packaging/org.pyxisload.PyxisLoad.metainfo.xml DESTINATION ${share}/metainfo ${main})
install(FILES packaging/pyxisjob.bash-completion DESTINATION ${share}/bash-completion/completions RENAME pyxisjob ${main})
# Before 73, where access is granted to whoever sits at the machine.
install(FILES packaging/60-pyxisload.rules DESTINATION lib/udev/rules.d ${main})
file(GLOB pages CONFIGURE_DEPENDS docs/*.md)
install(FILES README.md DESTINATION ${share}/doc/pyxisload ${main})
install(FILES ${pages} DESTINATION ${share}/doc/pyxisload/docs ${main})
install(DIRECTORY docs/images DESTINATION ${share}/doc/pyxisload/docs ${main})

set(standin COMPONENT pyxisload-standin)
install(TARGETS pyxiswriter DESTINATION bin ${standin})
install(TARGETS velmarapi DESTINATION ${lib} ${standin})

# Manual pages out of the programs' own help, and the user guide as one page for a browser.
option(PYXIS_PAGES "Make the manual pages and the guide's page (needs help2man and cmark-gfm)" OFF)
if(NOT PYXIS_PAGES)
  return()
endif()
find_program(HELP2MAN help2man REQUIRED)
find_program(CMARK_GFM cmark-gfm REQUIRED)
find_program(PERL perl REQUIRED)
set(made)
foreach(program pyxisload pyxisjob pyxisfolder pyxiswriter)
  set(words ${CMAKE_SOURCE_DIR}/packaging/man/${program}.h2m)
  set(page ${CMAKE_BINARY_DIR}/pages/${program}.1)
  add_custom_command(OUTPUT ${page}
    COMMAND ${CMAKE_SOURCE_DIR}/packaging/make_manual ${HELP2MAN} $<TARGET_FILE:${program}> ${words} ${page}
    DEPENDS ${program} ${words} packaging/make_manual COMMENT "Manual page of ${program}" VERBATIM)
  list(APPEND made ${page})
  if(program STREQUAL pyxiswriter)
    install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 ${standin})
  else()
    install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 ${main})
  endif()
endforeach()
set(guide ${CMAKE_BINARY_DIR}/pages/user-guide.html)
file(GLOB images CONFIGURE_DEPENDS docs/images/*.png)
add_custom_command(OUTPUT ${guide}
  COMMAND ${PERL} packaging/make_page ${CMARK_GFM} docs/user-guide.md ${guide}
  WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
  DEPENDS packaging/make_page docs/user-guide.md ${images} COMMENT "The user guide's page" VERBATIM)
install(FILES ${guide} DESTINATION ${share}/doc/pyxisload ${main})
add_custom_target(pages ALL DEPENDS ${made} ${guide})
