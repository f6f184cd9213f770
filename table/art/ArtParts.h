#pragma once

// Drawing pieces shared by the card art files. Everything here draws in the design coordinate
// system of one card (71 x 96 units); callers scale the painter to the device size first.

#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QRectF>

class QPainter;

namespace qx::CardArt {

// Rows of the face strip, top to bottom.
enum class Suit { Clubs = 0, Diamonds = 1, Hearts = 2, Spades = 3 };

constexpr qreal DesignWidth = 71.0;
constexpr qreal DesignHeight = 96.0;
const QRectF &designRect();

inline Suit suitOfCode(int code) { return static_cast<Suit>(code / 13); }
inline int rankOfCode(int code) { return code % 13 + 1; }
inline bool isRed(Suit suit) { return suit == Suit::Diamonds || suit == Suit::Hearts; }

QColor inkColour(Suit suit);
// A suit sign about one unit wide and high, centred on the origin, point or stem downwards.
const QPainterPath &suitPath(Suit suit);
// A suit sign of the given height centred on `centre`; upside down for the lower half of a card.
void drawSuit(QPainter &painter, Suit suit, QPointF centre, qreal height, bool upsideDown = false);

// Text turned into a path and fitted into `box` (centred, aspect kept unless it would be wider
// than the box, then squeezed), so indices look the same with whatever font the system has.
QPainterPath fittedText(const QString &text, const QFont &font, const QRectF &box);
QFont indexFont();
QString rankText(int rank);

// The card's white body with its thin border. `unitsPerPixel` keeps the border at least one
// device pixel wide on small cards.
void drawCardBody(QPainter &painter, qreal unitsPerPixel, const QColor &fill = Qt::white);
QPainterPath cardOutline(qreal inset = 0.0);

// A whole face (card code 0..51).
void drawFace(QPainter &painter, int code, qreal unitsPerPixel);
// The portrait panel of a jack, queen or king (rank 11..13).
void drawCourtPanel(QPainter &painter, Suit suit, int rank, qreal unitsPerPixel);
// A whole back: design 0 is the built-in one, 1..backDesignCount() the shipped ones.
void drawBack(QPainter &painter, int design, qreal unitsPerPixel);

} // namespace qx::CardArt
