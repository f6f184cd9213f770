#pragma once

namespace qx {

struct GameState;
class CardSlot;
class Waiter;

// Cards slide from place to place and turn over in place, drawn with the one spare slot, the
// moving card picCard(0), which is shown topmost only while an animation runs. Both animations
// return when they are over; between frames every event runs (Waiter::frameWait), and the callers
// guard against re-entry.
class CardAnimator {
public:
    CardAnimator(const GameState &state, CardSlot &movingCard, CardSlot &deck, Waiter &waiter);

    // On return the destination shows what the source showed.
    void AnimateCardMove(CardSlot &source, CardSlot &destination);
    // On return the slot shows the face of `code`, at its own place and size.
    void AnimateCardFlip(CardSlot &slot, int code);

    // The number of frames of each half of a flip: Frames / 2 rounded half to even, so 5 gives 2
    // (the card narrows to a fifth, not to nothing), 7 gives 4, 10 gives 5; 0 or less gives 0.
    static int flipHalfCount(int frames);

private:
    const GameState &m_state;
    CardSlot &m_moving;
    CardSlot &m_deck;
    Waiter &m_waiter;
};

} // namespace qx
