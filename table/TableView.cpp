#include "TableView.h"

#include "CardSlot.h"
#include "GameState.h"
#include "ScoreTally.h"
#include "TablePainter.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace qx {

TableView::TableView(const GameState &state, CardImages &images, QWidget *parent)
    : QWidget(parent), m_state(state)
{
    setObjectName(QStringLiteral("pnlPlayArea"));
    setAttribute(Qt::WA_OpaquePaintEvent);

    for (int i = 0; i < 5; ++i) {
        m_slots[static_cast<size_t>(i)] = new CardSlot(i, images, this);
        m_slots[static_cast<size_t>(i)]->setObjectName(QStringLiteral("picCard%1").arg(i));
    }
    m_slots[DeckSlot] = new CardSlot(DeckSlot, images, this);
    m_slots[DeckSlot]->setObjectName(QStringLiteral("picDeck"));
    movingCard()->hide();

    m_wait = new QLabel(this);
    m_wait->setObjectName(QStringLiteral("picWait"));
    m_wait->setScaledContents(true);
    m_wait->hide();

    m_continue = new QPushButton(tr("&Resume"), this);
    m_continue->setObjectName(QStringLiteral("cmdContinue"));
    m_continue->setCursor(Qt::PointingHandCursor);
    m_continue->hide();

    // Takes the keyboard focus while "&Resume" shows, so that Enter and Esc reach the window's
    // shortcuts and no key presses a button by accident. It stands outside the visible area.
    m_scapeGoat = new QPushButton(this);
    m_scapeGoat->setObjectName(QStringLiteral("cmdScapeGoat"));
    m_scapeGoat->setFocusPolicy(Qt::StrongFocus);
    m_scapeGoat->setGeometry(-100, -100, 1, 1);

    setMinimumSize(120, 90);
}

CardSlot *TableView::slot(int index) const
{
    checkIndex(index >= 0 && index <= DeckSlot, "card slot", index);
    return m_slots[static_cast<size_t>(index)];
}

void TableView::setMessage(const QString &text)
{
    m_message = text;
    update();
}

void TableView::setTallyShown(bool shown)
{
    m_tallyShown = shown;
    update();
}

void TableView::setFeltColor(const QColor &color)
{
    m_felt = color;
    m_cloth = QPixmap();
    update();
}

QColor TableView::feltColor() const { return m_felt.isValid() ? m_felt : TablePainter::defaultFelt(); }

bool TableView::humanMayPlay() const
{
    const int seat = m_state.CurrentPlayer;
    return seat >= 1 && seat <= MaxSeats && !m_state.Pausing && m_state.PileTag.isEmpty()
           && m_state.PlayerType(seat) == LocalHuman && slot(FirstHandSlot)->showsCard();
}

void TableView::stateChanged()
{
    if (m_layoutSeats != m_state.NumPlayers)
        relayout();
    const bool invite = humanMayPlay();
    for (int i = FirstHandSlot; i < FirstHandSlot + 3; ++i)
        slot(i)->setInviting(invite && slot(i)->showsCard());
    update();
}

void TableView::resizeEvent(QResizeEvent *)
{
    relayout();
}

void TableView::relayout()
{
    m_layoutSeats = m_state.NumPlayers;
    m_layout = TableLayout::compute(size(), m_layoutSeats);
    m_cloth = QPixmap();
    for (CardSlot *card : m_slots)
        card->setCardSize(m_layout.card);
    // The moving card is placed by the animation only.
    slot(PileSlot)->setGeometry(m_layout.pile);
    for (int i = 0; i < 3; ++i)
        slot(FirstHandSlot + i)->setGeometry(m_layout.hand[i]);
    slot(DeckSlot)->setGeometry(m_layout.stock);
    if (!movingCard()->isVisible())
        movingCard()->setGeometry(m_layout.pile);
    m_wait->setGeometry(m_layout.wait);
    m_continue->setGeometry(m_layout.resume);
    styleResume();
    update();
}

void TableView::styleResume()
{
    const int px = std::max(8, qRound(m_layout.resume.height() * 0.42));
    const int radius = m_layout.resume.height() / 2;
    m_continue->setStyleSheet(QStringLiteral(
        "QPushButton#cmdContinue { font: bold %1px 'DejaVu Sans'; color: #3a2806;"
        " background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #ffedb0, stop:1 #f2bd45);"
        " border: 1px solid #8a5d12; border-radius: %2px; padding: 0px; }"
        "QPushButton#cmdContinue:hover { background: qlineargradient(x1:0, y1:0, x2:0, y2:1,"
        " stop:0 #fff6d6, stop:1 #f7cb62); }"
        "QPushButton#cmdContinue:pressed { background: #e0a83a; }")
                                  .arg(px)
                                  .arg(radius));
}

void TableView::paintEvent(QPaintEvent *)
{
    if (m_cloth.isNull() || m_cloth.devicePixelRatio() != devicePixelRatioF())
        m_cloth = TablePainter::paintCloth(m_layout, feltColor(), devicePixelRatioF());
    QPainter painter(this);
    TableScene scene{m_state, m_layout, feltColor(), m_cloth, m_message};
    scene.tally = m_tallyShown ? m_tally : nullptr;
    scene.showKeys = humanMayPlay();
    scene.pileShown = slot(PileSlot)->showsCard();
    scene.stockShown = slot(DeckSlot)->showsCard();
    for (int i = 0; i < 3; ++i)
        scene.handShown[i] = slot(FirstHandSlot + i)->showsCard() && slot(FirstHandSlot + i)->isVisible();
    TablePainter(painter, scene).paint();
}

} // namespace qx
