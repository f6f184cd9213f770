#pragma once

#include "TableLayout.h"

#include <QColor>
#include <QCoreApplication>
#include <QFont>
#include <QPixmap>
#include <QString>

class QPainter;

namespace qx {

struct GameState;
class ScoreTally;

// Everything the play area shows besides the cards themselves.
struct TableScene {
    const GameState &state;
    const TableLayout &layout;
    QColor felt;
    QPixmap cloth; // the felt with its printed lines, drawn once per size and colour by paintCloth
    QString message;
    const ScoreTally *tally = nullptr; // null: no tally shown
    bool showKeys = false;             // a person at this computer may play now
    bool pileShown = false;
    bool stockShown = false;
    bool handShown[3] = {};
};

// Paints the table: felt, seat plates, running total, messages, key hints and the tally.
class TablePainter {
    Q_DECLARE_TR_FUNCTIONS(qx::TablePainter)

public:
    TablePainter(QPainter &painter, const TableScene &scene) : p(painter), s(scene) {}
    void paint();

    // The felt's own green, used when the player keeps the desktop's colour.
    static QColor defaultFelt() { return QColor(28, 104, 58); }
    // The cloth: the felt and the lines printed on it. It changes only with the size and the
    // colour, so the view keeps it and the frames of an animation only copy it.
    static QPixmap paintCloth(const TableLayout &layout, const QColor &felt, qreal dpr);
    // The font of the stock's count: as large as its place under the stock lets the text be.
    static QFont stockCountFont(const TableLayout &layout, const QString &text);
    // The tally's heading: "Games won" on the left and "of N" on the right of its inner width,
    // smaller where both would not fit side by side, and without "of N" where even the smallest
    // type leaves no room for it (`played` is then empty).
    struct TallyHead {
        QFont font;
        QString played;
    };
    static TallyHead tallyHead(const TableLayout &layout, int gamesPlayed);
    static qreal tallyPadding(const TableLayout &layout) { return 0.02 * layout.unit; }
    // The table's type face at a size in pixels (never under 6, the least that reads).
    static QFont tableFont(qreal pixels, bool bold = false);

private:
    void paintCardBeds();
    void paintStock();
    void paintSeats();
    void paintSeat(int seat, const QRect &plate);
    void paintTotal();
    void paintMessage();
    void paintKeys();
    void paintTally();
    QFont font(qreal pixels, bool bold = false) const;

    QPainter &p;
    const TableScene &s;
};

} // namespace qx
