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

    m.mnuGame = bar->addMenu(Menus::tr("&Game"));
    m.mnuGNew = item(m.mnuGame, Menus::tr("&New"), Qt::Key_F2);
    m.mnuGTakeOver = item(m.mnuGame, Menus::tr("&Take Over"), Qt::Key_F4);
    m.mnuGTakeOver->setEnabled(false);
    m.mnuGame->addSeparator();
    m.mnuGExit = item(m.mnuGame, Menus::tr("E&xit"), Qt::Key_F3);

    m.mnuOptions = bar->addMenu(Menus::tr("&Options"));
    m.mnuOSound = item(m.mnuOptions, Menus::tr("Sou&nd"), Qt::Key_F5, 1);
    m.mnuOScore = item(m.mnuOptions, Menus::tr("&Tally Score"), Qt::Key_F6, 1);
    m.mnuOShowComputer = item(m.mnuOptions, Menus::tr("S&how Computer Moves"), Qt::Key_F7, 0);
    m.mnuOptions->addSeparator();
    m.mnuOColor = m.mnuOptions->addMenu(Menus::tr("Background &Color"));
    m.mnuOCGray = item(m.mnuOColor, Menus::tr("&Gray"), {}, 0);
    m.mnuOCMatch = item(m.mnuOColor, Menus::tr("&Match Windows"), {}, 1);
    m.mnuOCCustom = item(m.mnuOColor, Menus::tr("&Custom..."), {}, 0);
    m.mnuOAnimation = m.mnuOptions->addMenu(Menus::tr("&Animation"));
    m.speedItems = {
        item(m.mnuOAnimation, Menus::tr("&None"), Qt::Key_Delete, 0, 0),
        item(m.mnuOAnimation, Menus::tr("&Fast"), QKeySequence(Qt::CTRL | Qt::Key_F), 0, 5),
        item(m.mnuOAnimation, Menus::tr("&Medium", "animation speed"), QKeySequence(Qt::CTRL | Qt::Key_M), 1, 10),
        item(m.mnuOAnimation, Menus::tr("&Slow"), QKeySequence(Qt::CTRL | Qt::Key_S), 0, 20),
    };
    m.mnuOPause = m.mnuOptions->addMenu(Menus::tr("&Pause Game"));
    m.mnuOPSelect[0] = item(m.mnuOPause, Menus::tr("Before &Humans"), {}, 1, 0);
    m.mnuOPSelect[1] = item(m.mnuOPause, Menus::tr("Before &Computers"), {}, 0, 1);
    m.mnuOPSelect[2] = item(m.mnuOPause, Menus::tr("After &Strikes"), {}, 1, 2);
    m.mnuNumDecks = m.mnuOptions->addMenu(Menus::tr("Number Of &Decks"));
    for (int packs = 1; packs <= 4; ++packs)
        m.deckItems.append(item(m.mnuNumDecks, QStringLiteral("&%1").arg(packs), {}, packs == 1, packs));
    m.mnuOptions->addSeparator();
    m.mnuORestore = item(m.mnuOptions, Menus::tr("&Restore Options"), Qt::Key_F8);
    m.mnuORestoreDefault = item(m.mnuOptions, Menus::tr("Restore Default Options"));
    m.mnuOSave = item(m.mnuOptions, Menus::tr("&Save Options"), Qt::Key_F9);

    m.mnuCards = bar->addMenu(Menus::tr("&Cards"));
    m.sizeItems = {
        item(m.mnuCards, Menus::tr("&Small"), {}, 0, 1),
        item(m.mnuCards, Menus::tr("&Medium", "card size"), {}, 1, 2),
        item(m.mnuCards, Menus::tr("&Large"), {}, 0, 4),
    };
    m.mnuCards->addSeparator();
    m.mnuCBack = item(m.mnuCards, Menus::tr("&Card Back"));

    m.mnuHelp = bar->addMenu(Menus::tr("&Help"));
    m.mnuHContents = item(m.mnuHelp, Menus::tr("&Contents"));
    m.mnuHRules = item(m.mnuHelp, Menus::tr("&Rules"));
    m.mnuHStrategy = item(m.mnuHelp, Menus::tr("&Strategy"));
    m.mnuHelp->addSeparator();
    m.mnuAbout = item(m.mnuHelp, Menus::tr("&About"));
    return m;
}

} // namespace qx
