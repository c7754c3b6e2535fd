# Installs the build into a staging folder (as a package build does, with DESTDIR) and checks
# that every file is there, that the staged companion runs from there, and that the desktop
# files pass their validators where those are installed.
#   cmake -DBUILD=<build dir> -DSTAGE=<folder> -DWITH_WINDOW=ON|OFF -P CheckInstall.cmake

file(REMOVE_RECURSE ${STAGE})
execute_process(COMMAND ${CMAKE_COMMAND} -E env DESTDIR=${STAGE}
                        ${CMAKE_COMMAND} --install ${BUILD} --prefix /opt/vt
                RESULT_VARIABLE result OUTPUT_QUIET)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "install failed: ${result}")
endif()
set(root ${STAGE}/opt/vt)

set(expected
    bin/veritrace-cli
    share/applications/org.orlentis.Veritrace.desktop
    share/mime/packages/veritrace.xml
    share/metainfo/org.orlentis.Veritrace.metainfo.xml
    share/icons/hicolor/scalable/apps/veritrace.svg
    share/icons/hicolor/scalable/mimetypes/application-x-veritrace.svg
    share/man/man1/veritrace.1
    share/man/man1/veritrace-cli.1
    share/veritrace/fonts/OrlentisFont.ttf)
foreach(size 16 22 24 32 48 64 128 256)
    list(APPEND expected share/icons/hicolor/${size}x${size}/apps/veritrace.png
         share/icons/hicolor/${size}x${size}/mimetypes/application-x-veritrace.png)
endforeach()
if(WITH_WINDOW)
    list(APPEND expected bin/veritrace share/veritrace/screenshot.png)
endif()
foreach(path ${expected})
    if(NOT EXISTS ${root}/${path})
        message(SEND_ERROR "not installed: ${path}")
    endif()
endforeach()

# The staged companion works from where it stands, and prints nothing but its own output.
execute_process(COMMAND ${root}/bin/veritrace-cli export -k x^2 -o ${STAGE}/g.svg
                RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT result EQUAL 0 OR NOT EXISTS ${STAGE}/g.svg OR NOT "${out}${err}" STREQUAL "")
    message(SEND_ERROR "staged veritrace-cli export failed (${result}): ${out}${err}")
endif()

# Each validator runs where it is installed.
find_program(DESKTOP_VALIDATE desktop-file-validate)
find_program(APPSTREAMCLI appstreamcli)
find_program(APPSTREAM_UTIL appstream-util)
find_program(XMLLINT xmllint)
find_program(UPDATE_MIME update-mime-database)
set(checks)
if(DESKTOP_VALIDATE)
    list(APPEND checks "${DESKTOP_VALIDATE}|${root}/share/applications/org.orlentis.Veritrace.desktop")
endif()
if(APPSTREAMCLI)
    list(APPEND checks "${APPSTREAMCLI}|validate|--no-net|${root}/share/metainfo/org.orlentis.Veritrace.metainfo.xml")
elseif(APPSTREAM_UTIL)
    list(APPEND checks "${APPSTREAM_UTIL}|validate-relax|--nonet|${root}/share/metainfo/org.orlentis.Veritrace.metainfo.xml")
endif()
if(XMLLINT)
    list(APPEND checks "${XMLLINT}|--noout|${root}/share/mime/packages/veritrace.xml")
endif()
foreach(check IN LISTS checks)
    string(REPLACE "|" ";" command "${check}")
    execute_process(COMMAND ${command} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT result EQUAL 0)
        message(SEND_ERROR "${command} failed: ${out}")
    endif()
endforeach()

# The MIME database made from the staged file gives *.vtx our type.
if(UPDATE_MIME)
    execute_process(COMMAND ${UPDATE_MIME} ${root}/share/mime RESULT_VARIABLE result
                    OUTPUT_QUIET ERROR_QUIET)
    file(READ ${root}/share/mime/globs2 globs)
    if(NOT result EQUAL 0 OR NOT globs MATCHES "application/x-veritrace:\\*\\.vtx")
        message(SEND_ERROR "update-mime-database does not give *.vtx its type: ${globs}")
    endif()
endif()
