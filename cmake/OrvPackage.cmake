# The Debian package, made by `cpack -G DEB` in the build folder (or by
# scripts/package.sh from a fresh checkout). Its version is the project's.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvantis-hd)
set(CPACK_PACKAGE_VENDOR Tavrix)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "broadcast character generator with fill and key output")
set(CPACK_PACKAGE_CONTACT "Orvantis-HD maintainers <maintainers@orvantis-hd.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Found at run time, not linked: the fonts of the sample pages and the tests'
# look, and the GStreamer elements of the outputs (the card and SRT in -bad,
# the Matroska file in -good, H.264 in -ugly, FFV1 in -libav).
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "fonts-dejavu-core, fonts-unfonts-core, gstreamer1.0-plugins-base, gstreamer1.0-plugins-good, gstreamer1.0-plugins-bad, gstreamer1.0-plugins-ugly, gstreamer1.0-libav")
# Slide import runs LibreOffice headless and says so when it is missing; TIFF
# pictures need Qt's extra image plug-ins; Korean buttons of standard dialogs
# come with Qt's translations.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "libreoffice-impress-nogui | libreoffice-impress, qt6-image-formats-plugins, qt6-translations-l10n")
# CPack puts the summary in front as the synopsis line.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "An editor and a headless command-line tool for on-air titles: lower thirds,
credits that roll and crawl, clocks and counters, pictures and animations,
composed as pages of a project and played to a video card as fill and key
through 33 transitions, by hand or from an automatic list. Text files and
presentation slides become pages. Without a card it works as an editor and
plays to files or network streams. The interface is in English and Korean.")

include(CPack)
