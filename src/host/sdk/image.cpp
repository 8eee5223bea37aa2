#include "sdk/image.h"

#include <QColor>
#include <QVariant>

namespace Script {
namespace GraphicItems {
namespace WImage {

namespace {

const ChannelIDs allChannels = ChannelIDs(ChannelRed | ChannelGreen | ChannelBlue);

} // namespace

Image::Image(QObject* parent)
    : DItem(parent)
{ }

Image::Image(const QString& path, IoType ioType, QObject* parent)
    : DItem(path, QStringLiteral("IDataImage"), ioType, parent)
{ }

Image::~Image() = default;

QList<DItem*> const& Image::channelList() const
{
    return m_lstChannels;
}

Image::LinkMode Image::linkMode() const
{
    return m_eLinkMode;
}

int Image::linkedChannelCount() const
{
    int count = 0;
    for (const DItem* channel : m_lstChannels) {
        if (channel && channel->isLinked())
            ++count;
    }
    return count;
}

QImage const& Image::qImage() const
{
    return m_oViewImage;
}

void Image::setViewMode(QFlags<ChannelID> channels)
{
    m_oViewMode = channels & allChannels;
    vUpdateView();
}

QFlags<ChannelID> Image::viewMode() const
{
    return m_oViewMode;
}

void Image::setLinkMode(LinkMode mode)
{
    m_eLinkMode = mode;
}

void Image::setQImage(const QImage& image)
{
    m_oSourceImage = image;
    vUpdateView();
}

QImage const& Image::sourceImage() const
{
    return m_oSourceImage;
}

DItem* Image::poAddChannel(const QString& name)
{
    auto* channel = new DItem(iDataPath() + QLatin1Char('.') + name,
                              QStringLiteral("IDataImageChannel"), ioType());
    channel->setProperty("IData.Description", name);
    vAppendChannel(channel);
    return channel;
}

void Image::vAppendChannel(DItem* channel)
{
    m_lstChannels.append(channel);
    if (!channel)
        return;
    channel->setParent(this);
    // A channel the host deletes leaves a gap rather than a dangling entry.
    connect(channel, &QObject::destroyed, this, [this](QObject* gone) {
        for (DItem*& entry : m_lstChannels) {
            if (entry == gone)
                entry = nullptr;
        }
    });
}

void Image::vUpdateView()
{
    if (m_oSourceImage.isNull() || m_oViewMode == ChannelIDs() || m_oViewMode == allChannels) {
        m_oViewImage = m_oSourceImage;
        return;
    }
    const QImage rgb = m_oSourceImage.convertToFormat(QImage::Format_RGB32);
    const bool single
        = m_oViewMode == ChannelRed || m_oViewMode == ChannelGreen || m_oViewMode == ChannelBlue;
    QImage view(rgb.size(), single ? QImage::Format_Grayscale8 : QImage::Format_RGB32);
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* source = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        if (single) {
            uchar* target = view.scanLine(y);
            for (int x = 0; x < rgb.width(); ++x) {
                const QRgb pixel = source[x];
                target[x] = static_cast<uchar>(m_oViewMode == ChannelRed         ? qRed(pixel)
                                                   : m_oViewMode == ChannelGreen ? qGreen(pixel)
                                                                                 : qBlue(pixel));
            }
        } else {
            auto* target = reinterpret_cast<QRgb*>(view.scanLine(y));
            for (int x = 0; x < rgb.width(); ++x) {
                const QRgb pixel = source[x];
                target[x] = qRgb(m_oViewMode.testFlag(ChannelRed) ? qRed(pixel) : 0,
                                 m_oViewMode.testFlag(ChannelGreen) ? qGreen(pixel) : 0,
                                 m_oViewMode.testFlag(ChannelBlue) ? qBlue(pixel) : 0);
            }
        }
    }
    m_oViewImage = view;
}

} // namespace WImage
} // namespace GraphicItems
} // namespace Script
