# tabulon_applications: the services of other applications, without Qt: the command-line tool uses them, too.
tabulon_library(tabulon_applications
  SOURCES BrowserLauncher.cpp CommandLineEvents.cpp DesktopEntries.cpp GioWorkspace.cpp SocketBridge.cpp X11Windows.cpp
  LINKS tabulon_platform tabulon_posix PkgConfig::XCB
  PRIVATE_LINKS PkgConfig::GIO tabulon_bridge)

# tabulon_linux: the desktop services that Qt, GIO, the message bus and the display serve.
tabulon_library(tabulon_linux
  SOURCES
    Activation.cpp ApplicationAdaptor.cpp DBusInstance.cpp QtAlerts.cpp QtPanels.cpp QtPasteboard.cpp
    QtProgressPanels.cpp QtTimers.cpp SessionEvents.cpp
    X11.cpp X11LinkLists.cpp X11SelectionReader.cpp
  LINKS tabulon_platform tabulon_applications Qt6::DBus Qt6::Widgets
  PRIVATE_LINKS PkgConfig::XCB)
set_target_properties(tabulon_linux PROPERTIES AUTOMOC ON)
