#include "CardArt.h"

#include <algorithm>

namespace qx {

namespace {

// Table layouts use two or three card sizes at once (hand, pile, animation); keep a few more so
// a resize back and forth does not redraw the whole strip.
constexpr std::size_t KeptFaceSizes = 4;
constexpr std::size_t KeptBacks = 8;

QSize deviceSize(QSize size, qreal dpr)
{
    return QSize(qRound(size.width() * dpr), qRound(size.height() * dpr));
}

QPixmap withRatio(QPixmap pixmap, qreal dpr)
{
    pixmap.setDevicePixelRatio(dpr); // no copy when the ratio is already right
    return pixmap;
}

} // namespace

QPixmap CardImages::face(int code, QSize size, qreal dpr)
{
    const int cards = CardArt::StripColumns * CardArt::StripRows;
    if (code < 0 || code >= cards || dpr <= 0)
        return {};
    const QSize device = deviceSize(size, dpr);
    if (device.isEmpty())
        return {};

    const auto key = std::make_tuple(code, device.width(), device.height());
    if (const auto found = m_faces.find(key); found != m_faces.end())
        return withRatio(found->second, dpr);

    if (m_stripCell != device || m_strip.isNull()) {
        m_strip = CardArt::renderFaceStrip(device);
        m_stripCell = device;
    }
    forgetOldSizes(device);
    QPixmap pixmap = QPixmap::fromImage(m_strip.copy(CardArt::cellRect(code, device)));
    pixmap.setDevicePixelRatio(dpr);
    m_faces.emplace(key, pixmap);
    return pixmap;
}

void CardImages::forgetOldSizes(QSize newest)
{
    m_faceSizes.erase(std::remove(m_faceSizes.begin(), m_faceSizes.end(), newest), m_faceSizes.end());
    m_faceSizes.push_back(newest);
    if (m_faceSizes.size() <= KeptFaceSizes)
        return;
    const QSize oldest = m_faceSizes.front();
    m_faceSizes.erase(m_faceSizes.begin());
    std::erase_if(m_faces, [oldest](const auto &entry) {
        return std::get<1>(entry.first) == oldest.width() && std::get<2>(entry.first) == oldest.height();
    });
}

QPixmap CardImages::back(QSize size, qreal dpr)
{
    if (dpr <= 0)
        return {};
    const QSize device = deviceSize(size, dpr);
    if (device.isEmpty())
        return {};
    const auto key = std::make_tuple(device.width(), device.height());
    if (const auto found = m_backs.find(key); found != m_backs.end())
        return withRatio(found->second, dpr);

    if (m_backs.size() >= KeptBacks)
        m_backs.clear();
    const QImage image = m_backPicture.isNull()
                             ? CardArt::renderBuiltinBack(device)
                             : CardArt::cutToCardShape(m_backPicture.scaled(device, Qt::IgnoreAspectRatio,
                                                                            Qt::SmoothTransformation));
    QPixmap pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(dpr);
    m_backs.emplace(key, pixmap);
    return pixmap;
}

void CardImages::setBackPicture(const QImage &picture)
{
    m_backPicture = picture;
    m_backs.clear();
}

} // namespace qx
