# Where `cmake --install` puts the programs, their data and the desktop's
# files: the usual Linux places under the prefix (/usr for the package).
# The package itself is described in OrvPackage.cmake.

set(ORV_APP_ID com.tavrix.OrvantisHD)
set(ORV_PACKAGING_DIR ${PROJECT_SOURCE_DIR}/packaging)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(TARGETS orvantis orvantis-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The build folder's data folder holds exactly what the installed one does.
install(DIRECTORY ${ORV_BUILD_DATA_DIR}/ DESTINATION ${ORV_DATA_INSTALL_DIR})

install(FILES ${ORV_PACKAGING_DIR}/${ORV_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_BINARY_DIR}/package-doc/${ORV_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${ORV_PACKAGING_DIR}/${ORV_APP_ID}.mime.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME ${ORV_APP_ID}.xml)
install(FILES ${ORV_PACKAGING_DIR}/icons/${ORV_APP_ID}.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 16 22 24 32 48 64 128 256)
    install(FILES ${ORV_PACKAGING_DIR}/icons/${size}/${ORV_APP_ID}.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()

# Manual pages and the package's documents go out compressed, as Debian's
# policy asks; -n keeps the bytes free of names and dates.
find_program(ORV_GZIP gzip REQUIRED)
function(orv_gzip_file source output)
    add_custom_command(OUTPUT ${output}
        COMMAND ${ORV_GZIP} -9 -n -c ${source} > ${output}
        DEPENDS ${source} VERBATIM)
endfunction()

file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/man ${PROJECT_BINARY_DIR}/package-doc)
set(ORV_MAN_PAGES orvantis.1 orvantis-cli.1)
set(ORV_GZIPPED)
foreach(page ${ORV_MAN_PAGES})
    orv_gzip_file(${PROJECT_SOURCE_DIR}/man/${page} ${PROJECT_BINARY_DIR}/man/${page}.gz)
    list(APPEND ORV_GZIPPED ${PROJECT_BINARY_DIR}/man/${page}.gz)
    install(FILES ${PROJECT_BINARY_DIR}/man/${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
# The changelog and the AppStream release carry the project's version.
configure_file(${ORV_PACKAGING_DIR}/changelog.in ${PROJECT_BINARY_DIR}/package-doc/changelog @ONLY)
configure_file(${ORV_PACKAGING_DIR}/${ORV_APP_ID}.metainfo.xml.in
               ${PROJECT_BINARY_DIR}/package-doc/${ORV_APP_ID}.metainfo.xml @ONLY)
orv_gzip_file(${PROJECT_BINARY_DIR}/package-doc/changelog
              ${PROJECT_BINARY_DIR}/package-doc/changelog.Debian.gz)
list(APPEND ORV_GZIPPED ${PROJECT_BINARY_DIR}/package-doc/changelog.Debian.gz)
add_custom_target(orv_gzipped_docs ALL DEPENDS ${ORV_GZIPPED})
set(ORV_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/orvantis-hd)
install(FILES ${PROJECT_BINARY_DIR}/package-doc/changelog.Debian.gz ${ORV_PACKAGING_DIR}/copyright
        DESTINATION ${ORV_DOC_DIR})

include(${CMAKE_CURRENT_LIST_DIR}/OrvPackage.cmake)
add_subdirectory(${PROJECT_SOURCE_DIR}/packaging/tests ${PROJECT_BINARY_DIR}/packaging-tests)
