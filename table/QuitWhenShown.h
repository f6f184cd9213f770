#pragma once

// Developer hooks that let a program outside watch QX start and leave again at once.
//
// For the start-up benchmark, which launches QX and the bare-window floor alike: with
// QX_QUIT_WHEN_SHOWN set, once the event loop has shown the main window, the program prints
// "shown <steady clock in ns>" (the clock the benchmark reads too) and leaves.
//
// For the language test: with QX_PRINT_CAPTIONS set, once the main window is shown, the program
// prints its caption as "title<TAB>text" and every menu entry as "menu<TAB>path" (the captions
// from the menu bar down, joined by " > ", each with its shortcut after a TAB when it has one),
// in UTF-8, and leaves.

#include <QAction>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include <chrono>
#include <cstdio>

namespace qx {

inline void quitWhenShownIfAsked()
{
    if (!qEnvironmentVariableIsSet("QX_QUIT_WHEN_SHOWN"))
        return;
    QTimer::singleShot(0, QCoreApplication::instance(), [] {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        std::printf("shown %lld\n", static_cast<long long>(std::chrono::nanoseconds(now).count()));
        QCoreApplication::quit();
    });
}

namespace detail {

inline void printLine(const QString &kind, const QString &text)
{
    std::printf("%s\t%s\n", kind.toUtf8().constData(), text.toUtf8().constData());
}

inline void printMenu(const QList<QAction *> &actions, const QString &path)
{
    for (const QAction *action : actions) {
        if (action->isSeparator())
            continue;
        const QString entry = path.isEmpty() ? action->text() : path + QStringLiteral(" > ") + action->text();
        const QString shortcut = action->shortcut().toString();
        printLine(QStringLiteral("menu"), shortcut.isEmpty() ? entry : entry + QLatin1Char('\t') + shortcut);
        if (const QMenu *sub = action->menu())
            printMenu(sub->actions(), entry);
    }
}

} // namespace detail

inline void printCaptionsWhenShownIfAsked(const QMainWindow &window)
{
    if (!qEnvironmentVariableIsSet("QX_PRINT_CAPTIONS"))
        return;
    QTimer::singleShot(0, &window, [&window] {
        detail::printLine(QStringLiteral("title"), window.windowTitle());
        detail::printMenu(window.menuBar()->actions(), {});
        std::fflush(stdout);
        QCoreApplication::quit();
    });
}

} // namespace qx
