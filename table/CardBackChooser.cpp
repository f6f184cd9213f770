#include "CardBackChooser.h"

#include "CardArt.h"

#include <QCoreApplication>
#include <QDir>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <functional>

namespace qx {

// One back of the chooser: its picture stretched to the tile.
class BackTile : public QWidget {
public:
    BackTile(int number, QWidget *parent) : QWidget(parent), m_number(number)
    {
        setCursor(Qt::PointingHandCursor);
        setObjectName(QStringLiteral("picDeck%1").arg(number));
    }
    void setPicture(const QImage &picture)
    {
        m_picture = picture;
        update();
    }
    std::function<void(int)> onClick;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter p(this);
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.drawImage(rect(), m_picture);
    }
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) && onClick)
            onClick(m_number);
    }

private:
    int m_number;
    QImage m_picture;
};

CardBackChooser::CardBackChooser(QWidget *parent, const QString &folder)
    : QDialog(parent), m_folder(folder.isEmpty() ? QCoreApplication::applicationDirPath() : folder)
{
    setObjectName(QStringLiteral("frmCardBack"));
    setWindowTitle(tr("Choose a card back"));
    load();
}

void CardBackChooser::setFolder(const QString &folder)
{
    m_folder = folder;
    load();
}

void CardBackChooser::load()
{
    qDeleteAll(m_tiles);
    m_tiles.clear();
    m_pictures.clear();

    const QSize cell = CardArt::DesignCell;
    const QDir dir(m_folder);
    m_files.clear();
    for (const QString &name : backFiles(m_folder)) {
        if (static_cast<int>(m_pictures.size()) >= MaxBacks)
            break;
        QImage image(dir.filePath(name));
        if (image.isNull())
            continue;
        m_files.append(name);
        m_pictures.push_back(image);
    }
    // The built-in back is there for a folder without back files, and then stands alone.
    if (m_pictures.empty())
        m_pictures.push_back(CardArt::renderBuiltinBack(cell));

    for (int i = 0; i < count(); ++i) {
        auto *tile = new BackTile(i, this);
        tile->setPicture(m_pictures[static_cast<size_t>(i)]);
        tile->setGeometry(Spacing + (i % Columns) * (Spacing + cell.width()),
                          Spacing + (i / Columns) * (Spacing + cell.height()), cell.width(), cell.height());
        tile->onClick = [this](int number) { picDeck_Click(number); };
        tile->show();
        m_tiles.push_back(tile);
    }
    const int columns = std::min(count(), Columns);
    const int rows = (count() + Columns - 1) / Columns;
    setFixedSize(Spacing + columns * (Spacing + cell.width()), Spacing + rows * (Spacing + cell.height()));
}

QStringList CardBackChooser::backFiles(const QString &folder)
{
    // Plain string order, so that the number of a back is its place in this list every time.
    QStringList names = QDir(folder).entryList({QStringLiteral("deck*.bmp")}, QDir::Files, QDir::NoSort);
    std::sort(names.begin(), names.end());
    return names;
}

QImage CardBackChooser::firstBack(const QString &folder)
{
    const QDir dir(folder);
    for (const QString &name : backFiles(folder)) {
        QImage image(dir.filePath(name));
        if (!image.isNull())
            return image;
    }
    return {};
}

QImage CardBackChooser::picture(int number) const
{
    if (number < 0 || number >= count())
        return {};
    return m_pictures[static_cast<size_t>(number)];
}

QWidget *CardBackChooser::picDeck(int number) const
{
    if (number < 0 || number >= count())
        return nullptr;
    return m_tiles[static_cast<size_t>(number)];
}

void CardBackChooser::picDeck_Click(int index)
{
    emit chosen(index);
    hide();
}

} // namespace qx
