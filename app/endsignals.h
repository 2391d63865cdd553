#pragma once

class QWidget;

// The desktop ends the programs of a session with SIGTERM, a terminal with SIGINT or SIGHUP. Each
// of them closes the main window as its close box does, so that the working folder goes with the
// program instead of staying behind in the user's cache.
void CloseOnEndSignals(QWidget& window);
