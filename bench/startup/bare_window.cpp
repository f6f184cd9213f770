// The floor for the start-up benchmark: the smallest Qt window program with a menu bar, shown and
// left the same way QX is.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QTimer>

#include <chrono>
#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QMainWindow window;
    window.menuBar()->addMenu(QStringLiteral("&Game"))->addAction(QStringLiteral("&New"));
    window.setCentralWidget(new QLabel(QStringLiteral("Bare window")));
    window.resize(720, 540);
    window.show();
    if (qEnvironmentVariableIsSet("QX_QUIT_WHEN_SHOWN"))
        QTimer::singleShot(0, &app, [] {
            const auto now = std::chrono::steady_clock::now().time_since_epoch();
            std::printf("shown %lld\n", static_cast<long long>(std::chrono::nanoseconds(now).count()));
            QCoreApplication::quit();
        });
    return QApplication::exec();
}
