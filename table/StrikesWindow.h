#pragma once

#include <QColor>
#include <QPoint>
#include <QWidget>

namespace qx {

struct GameState;

// frmStrikes: the strike marks of every seat, in a narrow window that rides along the main
// window's right edge, tops aligned. It keeps its place by the windows' own move and resize
// events, so it costs nothing while nobody touches either window.
class StrikesWindow : public QWidget {
    Q_OBJECT
public:
    // `mainWindow` is the window to follow; `table` the play area whose size sets the font.
    StrikesWindow(const GameState &state, QWidget *mainWindow, const QWidget *table);

    // Redraws the marks at the font size the play area's size calls for.
    void RefreshStrikeMarks();
    void setBackColor(const QColor &color);

    // The font size, in points, for a play area of this many pixels: the smaller of its width
    // in twips div 400 and its height in twips div 300, each at least 1.
    static int fontSizeFor(QSize clientPixels);
    int fontSize() const { return m_pointSize; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    // Puts the window back flush against the main window's right edge, tops aligned.
    void keepPos();
    QFont marksFont() const;
    void fitToContent();

    const GameState &m_state;
    QWidget *m_main;
    const QWidget *m_table;
    int m_pointSize = 8;
    QColor m_back;
    // Snaps asked for since the window last stood where it belongs: a window manager that will not
    // let it stand there must not start an endless exchange of moves.
    int m_unansweredSnaps = 0;
};

} // namespace qx
