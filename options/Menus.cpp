#include "Menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace qx {

namespace {

QAction *item(QMenu *menu, const QString &caption, const QKeySequence &key = {},
              int checked = -1, QVariant index = {})
{
    QAction *a = menu->addAction(caption);
    if (!key.isEmpty())
        a->setShortcut(key);
    if (checked >= 0) {
        a->setCheckable(true);
        a->setChecked(checked == 1);
    }
    if (index.isValid())
        a->setData(index);
    return a;
}

QAction *byData(const QList<QAction *> &items, int index)
{
    for (QAction *a : items)
        if (a->data().toInt() == index)
            return a;
    return nullptr;
}

} // namespace

QAction *Menus::mnuOASpeed(int frames) const { return byData(speedItems, frames); }
QAction *Menus::mnuODNum(int packs) const { return byData(deckItems, packs); }
QAction *Menus::mnuCSize(int index) const { return byData(sizeItems, index); }

Menus buildMenus(QMenuBar *bar)
{
    Menus m;

    m.mnuGame = bar->addMenu(QStringLiteral("&Game"));
    m.mnuGNew = item(m.mnuGame, QStringLiteral("&New"), Qt::Key_F2);
    m.mnuGTakeOver = item(m.mnuGame, QStringLiteral("&Take Over"), Qt::Key_F4);
    m.mnuGTakeOver->setEnabled(false);
    m.mnuGame->addSeparator();
    m.mnuGExit = item(m.mnuGame, QStringLiteral("E&xit"), Qt::Key_F3);

    m.mnuOptions = bar->addMenu(QStringLiteral("&Options"));
    m.mnuOSound = item(m.mnuOptions, QStringLiteral("Sou&nd"), Qt::Key_F5, 1);
    m.mnuOScore = item(m.mnuOptions, QStringLiteral("&Tally Score"), Qt::Key_F6, 1);
    m.mnuOShowComputer = item(m.mnuOptions, QStringLiteral("S&how Computer Moves"), Qt::Key_F7, 0);
    m.mnuOptions->addSeparator();
    m.mnuOColor = m.mnuOptions->addMenu(QStringLiteral("Background &Color"));
    m.mnuOCGray = item(m.mnuOColor, QStringLiteral("&Gray"), {}, 0);
    m.mnuOCMatch = item(m.mnuOColor, QStringLiteral("&Match Windows"), {}, 1);
    m.mnuOCCustom = item(m.mnuOColor, QStringLiteral("&Custom..."), {}, 0);
    m.mnuOAnimation = m.mnuOptions->addMenu(QStringLiteral("&Animation"));
    m.speedItems = {
        item(m.mnuOAnimation, QStringLiteral("&None"), Qt::Key_Delete, 0, 0),
        item(m.mnuOAnimation, QStringLiteral("&Fast"), QKeySequence(Qt::CTRL | Qt::Key_F), 0, 5),
        item(m.mnuOAnimation, QStringLiteral("&Medium"), QKeySequence(Qt::CTRL | Qt::Key_M), 1, 10),
        item(m.mnuOAnimation, QStringLiteral("&Slow"), QKeySequence(Qt::CTRL | Qt::Key_S), 0, 20),
    };
    m.mnuOPause = m.mnuOptions->addMenu(QStringLiteral("&Pause Game"));
    m.mnuOPSelect[0] = item(m.mnuOPause, QStringLiteral("Before &Humans"), {}, 1, 0);
    m.mnuOPSelect[1] = item(m.mnuOPause, QStringLiteral("Before &Computers"), {}, 0, 1);
    m.mnuOPSelect[2] = item(m.mnuOPause, QStringLiteral("After &Strikes"), {}, 1, 2);
    m.mnuNumDecks = m.mnuOptions->addMenu(QStringLiteral("Number Of &Decks"));
    for (int packs = 1; packs <= 4; ++packs)
        m.deckItems.append(item(m.mnuNumDecks, QStringLiteral("&%1").arg(packs), {}, packs == 1, packs));
    m.mnuOptions->addSeparator();
    m.mnuORestore = item(m.mnuOptions, QStringLiteral("&Restore Options"), Qt::Key_F8);
    m.mnuORestoreDefault = item(m.mnuOptions, QStringLiteral("Restore Default Options"));
    m.mnuOSave = item(m.mnuOptions, QStringLiteral("&Save Options"), Qt::Key_F9);

    m.mnuCards = bar->addMenu(QStringLiteral("&Cards"));
    m.sizeItems = {
        item(m.mnuCards, QStringLiteral("&Small"), {}, 0, 1),
        item(m.mnuCards, QStringLiteral("&Medium"), {}, 1, 2),
        item(m.mnuCards, QStringLiteral("&Large"), {}, 0, 4),
    };
    m.mnuCards->addSeparator();
    m.mnuCBack = item(m.mnuCards, QStringLiteral("&Card Back"));

    m.mnuHelp = bar->addMenu(QStringLiteral("&Help"));
    m.mnuHContents = item(m.mnuHelp, QStringLiteral("&Contents"));
    m.mnuHRules = item(m.mnuHelp, QStringLiteral("&Rules"));
    m.mnuHStrategy = item(m.mnuHelp, QStringLiteral("&Strategy"));
    m.mnuHelp->addSeparator();
    m.mnuAbout = item(m.mnuHelp, QStringLiteral("&About"));
    return m;
}

} // namespace qx
