#pragma once

#include <QDialog>
#include <QImage>
#include <QStringList>

#include <vector>

namespace qx {

class BackTile;

// frmCardBack, "Choose a card back": the deck*.bmp pictures of the program's folder in plain
// string order of their names, numbered from 0 (at most 37), or the built-in back alone when the
// folder holds none; in a grid of six columns. A click chooses a back and hides the chooser.
class CardBackChooser : public QDialog {
    Q_OBJECT
public:
    static constexpr int MaxBacks = 37;
    static constexpr int Columns = 6;
    static constexpr int Spacing = 16; // 240 twips

    // The folder of the back files: the program's own unless given.
    explicit CardBackChooser(QWidget *parent = nullptr, const QString &folder = {});

    // Form_Load: finds the back files and lays the grid out. Runs once on construction.
    void load();
    void setFolder(const QString &folder);
    QString folder() const { return m_folder; }

    // The back files of `folder`, in plain string order (not yet read).
    static QStringList backFiles(const QString &folder);
    // Back number 0 of `folder` without making the chooser: the first back file that reads, or a
    // null image when there is none (the built-in back).
    static QImage firstBack(const QString &folder);

    int count() const { return static_cast<int>(m_pictures.size()); }
    QImage picture(int number) const;
    // The files behind the backs, in their order (empty: the built-in back alone).
    QStringList fileNames() const { return m_files; }
    // The element that shows back `number` (picDeck(number)).
    QWidget *picDeck(int number) const;

    void picDeck_Click(int index);

signals:
    void chosen(int number);

private:
    QString m_folder;
    QStringList m_files;
    std::vector<QImage> m_pictures;
    std::vector<BackTile *> m_tiles;
};

} // namespace qx
