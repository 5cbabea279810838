# What `cmake --install` puts in place: the program, its man page, its documents
# and the example.
#
# A HiGHS that was unpacked below the build folder is installed beside the
# program, which would otherwise stop working when that folder is removed, and
# its licence among the documents. A HiGHS of the system stays where it is.

include(GNUInstallDirs)

function(install_program program)
  install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  string(FIND "${HiGHS_LIBRARY}" "${PROJECT_SOURCE_DIR}/build/" position)
  if(position EQUAL 0)
    set(private_folder ${CMAKE_INSTALL_LIBDIR}/netorient)
    file(RELATIVE_PATH from_program /${CMAKE_INSTALL_BINDIR} /${private_folder})
    install(FILES ${HiGHS_LIBRARY} DESTINATION ${private_folder})
    get_filename_component(highs_folder ${HiGHS_LIBRARY}/../.. ABSOLUTE)
    install(FILES ${highs_folder}/share/doc/HIGHS/LICENSE.txt ${highs_folder}/share/doc/HIGHS/AUTHORS
      DESTINATION ${CMAKE_INSTALL_DOCDIR}/HiGHS)
    set_target_properties(${program} PROPERTIES INSTALL_RPATH "$ORIGIN/${from_program}")
  else()
    set_target_properties(${program} PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
  endif()
endfunction()

install(FILES docs/netorient.1 docs/netorient-tools.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES README.md CONTRIBUTING.md CHANGELOG.md LICENSE CITATION.cff DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs PATTERN "*.1" EXCLUDE)
install(DIRECTORY example DESTINATION ${CMAKE_INSTALL_DOCDIR} PATTERN run EXCLUDE)
