#pragma once
#include <QStringList>

class MainWindow;

// The project named on the command line, opened as File → Open would,
// errors and all. Arguments are what QApplication left of the command:
// the program's name first, then anything it did not take as its own.
// The first argument that is not an option counts; the rest are ignored.
void openFromCommandLine(MainWindow& window, const QStringList& arguments);
