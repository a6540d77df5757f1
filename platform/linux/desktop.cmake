# tabulon_linux: the desktop services that Qt serves.
tabulon_library(tabulon_linux
  SOURCES QtAlerts.cpp QtPanels.cpp QtUserDefaults.cpp XdgFolderReferences.cpp XdgFolders.cpp
  LINKS tabulon_platform Qt6::Widgets)
