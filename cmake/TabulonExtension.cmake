# The browser extension: a copy in the build folder, where a program that is not installed finds it, the archive for
# Firefox, and what is installed. Below /usr, which is the place of a package, the files with which Firefox and Debian's
# Chromium load the extension for all users are installed too.
set(extension_files manifest.json background.js)
set(extension_folder ${CMAKE_CURRENT_BINARY_DIR}/extension)
set(extension_archive ${CMAKE_CURRENT_BINARY_DIR}/bridge@tabulon.com.xpi)
set(extension_sources)
foreach(file IN LISTS extension_files)
  configure_file(${PROJECT_SOURCE_DIR}/extension/${file} ${extension_folder}/${file} COPYONLY)
  list(APPEND extension_sources ${extension_folder}/${file})
endforeach()

add_custom_command(OUTPUT ${extension_archive}
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/make_archive.py ${extension_archive} ${extension_files}
  WORKING_DIRECTORY ${extension_folder}
  DEPENDS ${extension_sources} ${CMAKE_CURRENT_LIST_DIR}/make_archive.py
  VERBATIM)
add_custom_target(tabulon_extension ALL DEPENDS ${extension_archive})

install(FILES ${extension_sources} DESTINATION ${CMAKE_INSTALL_DATADIR}/tabulon/extension)

set(TABULON_MANIFEST_NAME com.tabulon.tabulon.json)
install(CODE "
  if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
    set(TABULON_HOST \"/usr/${CMAKE_INSTALL_BINDIR}/tabulon-host\")
    set(made \"${CMAKE_CURRENT_BINARY_DIR}/native-messaging\")
    set(template \"${PROJECT_SOURCE_DIR}/resources/native-messaging.json.in\")
    set(TABULON_ALLOWED [=[\"allowed_origins\": [\"chrome-extension://acmdlmfdkmlgnfaaobobgmmjabodbgde/\"]]=])
    configure_file(\"\${template}\" \"\${made}/chromium/${TABULON_MANIFEST_NAME}\" @ONLY)
    set(TABULON_ALLOWED [=[\"allowed_extensions\": [\"bridge@tabulon.com\"]]=])
    configure_file(\"\${template}\" \"\${made}/mozilla/${TABULON_MANIFEST_NAME}\" @ONLY)
    file(INSTALL \"\${made}/chromium/${TABULON_MANIFEST_NAME}\" DESTINATION /etc/chromium/native-messaging-hosts)
    file(INSTALL \"\${made}/mozilla/${TABULON_MANIFEST_NAME}\" DESTINATION /usr/lib/mozilla/native-messaging-hosts)
    file(INSTALL \"${extension_archive}\" DESTINATION
      /usr/lib/mozilla/extensions/{ec8030f7-c20a-464f-9b0e-13a3a9e97384})
    file(INSTALL \"${extension_folder}/\" DESTINATION /usr/share/chromium/extensions/tabulon)
  endif()
")
