# tabulon_linux: the desktop services that Qt, GIO, the message bus and the display serve.
tabulon_library(tabulon_linux
  SOURCES
    Activation.cpp ApplicationAdaptor.cpp DBusInstance.cpp GioWorkspace.cpp QtAlerts.cpp QtPanels.cpp QtPasteboard.cpp
    QtProgressPanels.cpp QtTimers.cpp SessionEvents.cpp
    X11.cpp X11LinkLists.cpp X11SelectionReader.cpp
  LINKS tabulon_platform Qt6::DBus Qt6::Widgets
  PRIVATE_LINKS PkgConfig::GIO PkgConfig::XCB)
set_target_properties(tabulon_linux PROPERTIES AUTOMOC ON)
# "signals" is a keyword for Qt and a name in the headers of GIO.
set_source_files_properties(GioWorkspace.cpp PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
