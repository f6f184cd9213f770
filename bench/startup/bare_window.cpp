// The floor for the start-up benchmark: the smallest Qt window program with a menu bar, shown and
// left the same way QX is.
#include "QuitWhenShown.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QMainWindow window;
    window.menuBar()->addMenu(QStringLiteral("&Game"))->addAction(QStringLiteral("&New"));
    window.setCentralWidget(new QLabel(QStringLiteral("Bare window")));
    window.resize(720, 540);
    window.show();
    qx::quitWhenShownIfAsked();
    return QApplication::exec();
}
