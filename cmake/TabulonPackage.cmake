# The Debian package: cpack -G DEB in a build folder. The packages of MIME types, desktop entries and icons
# rebuild their caches when files are installed or removed, so there are no maintainer scripts.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tabulon)
set(CPACK_PACKAGE_CONTACT "The Tabulon developers <maintainers@tabulon.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "bookmark manager for the desktop and the command line")
set(CPACK_PACKAGE_DESCRIPTION
"Tabulon keeps bookmarks: links, folders and separators in documents of your
own, apart from any browser. It opens the bookmark file that a browser
exports, shows the whole tree in a window, and gives it back as a file that
every browser imports. The command-line tool tabulon-cli does the same without
a desktop.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)

# The files are installed into another folder with DESTDIR, because their contents name paths below /usr.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
if(TABULON_DESKTOP)
  # A plugin of Qt draws the icons. It is not among the linked libraries, so it is named here.
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6 (>= 6.4)")
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "default-dbus-session-bus | dbus-session-bus, qt6-wayland")
endif()
if(TABULON_DESKTOP)
  # A file in /etc that the administrator has changed is kept by an upgrade.
  file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/conffiles "/etc/chromium/native-messaging-hosts/com.tabulon.tabulon.json\n")
  set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_BINARY_DIR}/conffiles)
endif()

set(documentation ${CMAKE_INSTALL_DATADIR}/doc/tabulon)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${documentation} RENAME copyright)
string(TIMESTAMP TABULON_PACKAGE_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(${PROJECT_SOURCE_DIR}/resources/changelog.Debian.in ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian @ONLY)
tabulon_install_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog.gz ${documentation})
tabulon_install_compressed(${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian changelog.Debian.gz ${documentation})
include(CPack)
