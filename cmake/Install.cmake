# Installing Veritrace as a desktop program: `cmake --install build [--prefix P]` (or
# `make install PREFIX=P`, with DESTDIR for a staged install).
#
#   <prefix>/bin/veritrace, veritrace-cli
#   <prefix>/share/veritrace/help/        the help book: the program looks for it in
#                                         <bindir>/../share/veritrace/help, and in <bindir>/help
#                                         when it runs from the build tree
#   <prefix>/share/veritrace/fonts/       the bundled fonts with their licence, for viewers of
#                                         the SVG pictures (the program has them compiled in)
#   <prefix>/share/veritrace/screenshot.png   the window, as the program draws it
#   <prefix>/share/applications/, share/mime/packages/, share/metainfo/, share/icons/hicolor/,
#   <prefix>/share/man/man1/

include(GNUInstallDirs)

set(VERITRACE_ID org.orlentis.Veritrace)
set(VERITRACE_SCREENSHOT_URL "" CACHE STRING
    "Web address where the screenshot is published, for the AppStream metainfo (none: left out)")

install(TARGETS veritrace-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET veritrace)
    install(TARGETS veritrace RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

if(EXISTS ${CMAKE_SOURCE_DIR}/assets/help)
    install(DIRECTORY ${CMAKE_SOURCE_DIR}/assets/help/
            DESTINATION ${CMAKE_INSTALL_DATADIR}/veritrace/help)
    # The same book beside the built program, where it looks when run from the build tree.
    file(COPY ${CMAKE_SOURCE_DIR}/assets/help/ DESTINATION ${CMAKE_BINARY_DIR}/help)
endif()

install(DIRECTORY ${CMAKE_SOURCE_DIR}/assets/fonts/
        DESTINATION ${CMAKE_INSTALL_DATADIR}/veritrace/fonts)

set(desktop ${CMAKE_SOURCE_DIR}/assets/desktop)
install(FILES ${desktop}/${VERITRACE_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${desktop}/veritrace.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)

if(VERITRACE_SCREENSHOT_URL)
    set(VERITRACE_SCREENSHOTS
        "  <screenshots>\n    <screenshot type=\"default\">\n      <caption>A function graphed, \
with its equation typeset</caption>\n      <image>${VERITRACE_SCREENSHOT_URL}</image>\n    \
</screenshot>\n  </screenshots>\n")
else()
    set(VERITRACE_SCREENSHOTS "")
endif()
configure_file(${desktop}/${VERITRACE_ID}.metainfo.xml.in
               ${CMAKE_BINARY_DIR}/${VERITRACE_ID}.metainfo.xml @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/${VERITRACE_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(icons ${CMAKE_SOURCE_DIR}/assets/icons)
set(hicolor ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${icons}/veritrace.svg DESTINATION ${hicolor}/scalable/apps)
install(FILES ${icons}/application-x-veritrace.svg DESTINATION ${hicolor}/scalable/mimetypes)
foreach(size 16 22 24 32 48 64 128 256)
    install(FILES ${icons}/png/${size}/veritrace.png DESTINATION ${hicolor}/${size}x${size}/apps)
    install(FILES ${icons}/png/${size}/application-x-veritrace.png
            DESTINATION ${hicolor}/${size}x${size}/mimetypes)
endforeach()

install(FILES ${CMAKE_SOURCE_DIR}/assets/man/veritrace.1 ${CMAKE_SOURCE_DIR}/assets/man/veritrace-cli.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# The screenshot is made by the built program itself, offscreen, when the install runs.
if(TARGET veritrace)
    install(CODE "
        set(shot \"${CMAKE_BINARY_DIR}/screenshot.png\")
        execute_process(
            COMMAND \${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen
                    \"$<TARGET_FILE:veritrace>\" --no-splash --keys 2x^2-3 --graph --screenshot \${shot}
            RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET TIMEOUT 60)
        if(NOT result EQUAL 0)
            message(FATAL_ERROR \"veritrace could not make its screenshot\")
        endif()")
    install(FILES ${CMAKE_BINARY_DIR}/screenshot.png DESTINATION ${CMAKE_INSTALL_DATADIR}/veritrace)
endif()

if(VERITRACE_TESTS)
    set(with_window OFF)
    if(TARGET veritrace)
        set(with_window ON)
    endif()
    add_test(NAME install
             COMMAND ${CMAKE_COMMAND} -DBUILD=${CMAKE_BINARY_DIR}
                     -DSTAGE=${CMAKE_BINARY_DIR}/install-stage -DWITH_WINDOW=${with_window}
                     -P ${CMAKE_SOURCE_DIR}/tests/install/CheckInstall.cmake)
endif()
