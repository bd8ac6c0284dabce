# The manual pages vantle(1) and vantle-cli(1), made at build time by help2man from
# each program's --help and --version, so that the page and the help never part.
find_program(HELP2MAN help2man REQUIRED)
find_program(GZIP gzip REQUIRED)

set(VANTLE_MAN_DIR ${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_MANDIR}/man1)

function(vantle_man_page program summary)
    set(page ${VANTLE_MAN_DIR}/${program}.1)
    add_custom_command(
        OUTPUT ${page} ${page}.gz
        COMMAND ${CMAKE_COMMAND} -E make_directory ${VANTLE_MAN_DIR}
        COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C.UTF-8 LANGUAGE= QT_QPA_PLATFORM=offscreen
                PATH=$<TARGET_FILE_DIR:${program}>:$ENV{PATH}
                ${CMAKE_COMMAND} -DHELP2MAN=${HELP2MAN} -DPROGRAM=${program} -DSUMMARY=${summary} -DPAGE=${page}
                -P ${PROJECT_SOURCE_DIR}/cmake/RunHelp2man.cmake
        COMMAND ${GZIP} -9nkf ${page}
        DEPENDS ${program} ${PROJECT_SOURCE_DIR}/cmake/RunHelp2man.cmake
        COMMENT "Making the manual page ${program}(1)"
        VERBATIM)
    add_custom_target(${program}_man ALL DEPENDS ${page} ${page}.gz)
    install(FILES ${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endfunction()

vantle_man_page(vantle-cli "erase the traces browsers and mail clients leave behind, from a terminal")
if(VANTLE_GUI)
    vantle_man_page(vantle "erase the traces browsers and mail clients leave behind")
endif()
