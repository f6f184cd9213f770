#pragma once

#include "TableLayout.h"

#include <QColor>
#include <QPixmap>
#include <QWidget>

#include <array>

class QLabel;
class QPushButton;

namespace qx {

struct GameState;
class CardImages;
class CardSlot;
class ScoreTally;

// The play area pnlPlayArea: paints the table from the game state and holds the card slots, the
// "&Resume" button, the hidden focus button and the network waiting picture. It decides nothing:
// clicks go out through the slots' clicked signal.
class TableView : public QWidget {
    Q_OBJECT
public:
    TableView(const GameState &state, CardImages &images, QWidget *parent);

    // picCard(0..4) by index, picDeck by DeckSlot.
    CardSlot *slot(int index) const;
    CardSlot *movingCard() const { return slot(0); }
    QPushButton *cmdContinue() const { return m_continue; }
    QPushButton *cmdScapeGoat() const { return m_scapeGoat; }
    QLabel *picWait() const { return m_wait; }

    void setMessage(const QString &text);
    const QString &message() const { return m_message; }
    void setTally(const ScoreTally *tally) { m_tally = tally; }
    void setTallyShown(bool shown);
    bool tallyShown() const { return m_tallyShown; }
    // The felt's colour; an invalid colour means the table's own green.
    void setFeltColor(const QColor &color);
    QColor feltColor() const;

    const TableLayout &tableLayout() const { return m_layout; }
    // The game state changed: repaint, and let the hand answer the pointer only while a person
    // at this computer may play one of its cards.
    void stateChanged();
    bool humanMayPlay() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void relayout();
    void styleResume();

    const GameState &m_state;
    std::array<CardSlot *, 6> m_slots{};
    QPushButton *m_continue = nullptr;
    QPushButton *m_scapeGoat = nullptr;
    QLabel *m_wait = nullptr;
    QString m_message;
    const ScoreTally *m_tally = nullptr;
    bool m_tallyShown = true;
    QColor m_felt;
    QPixmap m_cloth;
    TableLayout m_layout;
    int m_layoutSeats = -1;
};

} // namespace qx
