# tabulon_linux: the desktop services that Qt serves.
tabulon_library(tabulon_linux
  SOURCES QtAlerts.cpp QtPanels.cpp QtTimers.cpp SessionEvents.cpp
  LINKS tabulon_platform Qt6::Widgets)
