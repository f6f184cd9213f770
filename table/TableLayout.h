#pragma once

#include <QRect>
#include <QSize>

#include <vector>

namespace qx {

// Where everything stands on the play area for a given size and number of seats. Pure geometry:
// the view paints by it, the tests check that nothing overlaps at any size.
//
// The seats sit along an open track that runs up the left edge, across the top and down the right
// edge, seat 1 at its left end, so that play with Direction +1 goes clockwise. The pile with the
// running total on its left and the stock on its right is in the middle, the messages above it,
// the three cards of the hand shown at the bottom with their keys under them, the tally of games
// in the bottom-left corner and the "&Resume" button between the pile and the hand.
struct TableLayout {
    QSize area;
    QSize card;           // every card slot has this size
    qreal unit = 0;       // the scale of texts and ornaments: the height of a 4:3 area that fits
    QRect pile;           // picCard(1)
    QRect stock;          // picDeck
    QRect hand[3];        // picCard(2..4)
    QRect keyHints;       // the band under the hand with the keys 1, 2, 3
    QRect total;          // the square that holds the round badge of the running total
    QRect stockCount;     // the cards left in the stock, under it
    QRect message;        // the turn and strike messages
    QRect resume;         // cmdContinue
    QRect wait;           // picWait, the network waiting indicator
    QRect tally;          // the tally of games won
    std::vector<QRect> seats; // seat plates, seat 1 first

    static TableLayout compute(QSize area, int numSeats);

    // The play area the window opens with (the "&Medium" size). "&Large" doubles it, so it is
    // chosen that twice the area, with `chrome` (the window's menu bar and frame) round it, fits
    // the `available` desktop; never larger than 720 x 540 nor smaller than SmallestStartArea.
    static QSize startArea(QSize available, QSize chrome);
    static constexpr QSize PreferredStartArea{720, 540};
    static constexpr QSize SmallestStartArea{480, 360};

    // Every named rectangle (seat plates included), for overlap checks.
    std::vector<QRect> allRects() const;
};

} // namespace qx
