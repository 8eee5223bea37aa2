#ifndef SDK_IMAGE_H
#define SDK_IMAGE_H

#include "sdk/ditem.h"

#include <QFlags>
#include <QImage>
#include <QList>

namespace Script {
namespace GraphicItems {
namespace WImage {

/// A colour channel of an image, as a flag so that several can be chosen at once.
enum ChannelID { ChannelRed = 0x1, ChannelGreen = 0x2, ChannelBlue = 0x4 };
Q_DECLARE_FLAGS(ChannelIDs, ChannelID)

/// An image node. Besides the image itself it has one child node per colour channel, so that an
/// image can be linked either as a whole or channel by channel.
class SDK_EXPORT Image : public DItem
{
    Q_OBJECT

public:
    /// How the image takes its link.
    enum LinkMode {
        LinkWholeImage = 0, ///< The image is linked to another image as a whole.
        LinkPerChannel = 1, ///< Each channel is linked to a channel of its own choice.
        LinkNotAllowed = 2 ///< The image cannot be linked.
    };
    Q_ENUM(LinkMode)

    /// Makes an empty image node without path.
    explicit Image(QObject* parent = nullptr);
    /// Makes an image node at @p path, of type "IDataImage".
    explicit Image(const QString& path, IoType ioType = IoNone, QObject* parent = nullptr);
    ~Image() override;

    /// The channel nodes, in channel order. An entry may be null where the host keeps a gap.
    QList<DItem*> const& channelList() const;
    /// How the image takes its link.
    LinkMode linkMode() const;
    /// The number of channels that are linked.
    int linkedChannelCount() const;
    /// The image as the current view mode shows it: the whole image when no channel or every
    /// channel is chosen, one channel as grey levels, or the chosen channels with the others
    /// black.
    QImage const& qImage() const;
    /// Chooses the channels that qImage() shows; empty flags show the whole image.
    void setViewMode(QFlags<ChannelID> channels);

    /// The channels that qImage() shows.
    QFlags<ChannelID> viewMode() const;
    /// Sets how the image takes its link.
    void setLinkMode(LinkMode mode);
    /// Replaces the image.
    void setQImage(const QImage& image);
    /// The image as it was given, whatever the view mode.
    QImage const& sourceImage() const;
    /// Makes a channel node named @p name at "<image path>.<name>", owned by the image, and
    /// appends it to the channel list.
    DItem* poAddChannel(const QString& name);
    /// Appends @p channel to the channel list; the image takes ownership of a non-null channel,
    /// and a null one is kept as a gap.
    void vAppendChannel(DItem* channel);

private:
    void vUpdateView();

    QList<DItem*> m_lstChannels;
    LinkMode m_eLinkMode = LinkWholeImage;
    QFlags<ChannelID> m_oViewMode;
    QImage m_oSourceImage;
    QImage m_oViewImage;
};

} // namespace WImage
} // namespace GraphicItems
} // namespace Script

Q_DECLARE_OPERATORS_FOR_FLAGS(Script::GraphicItems::WImage::ChannelIDs)

#endif
