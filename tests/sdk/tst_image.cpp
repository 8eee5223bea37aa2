#include "sdk/image.h"

#include "testsupport.h"

#include <QTest>

using Script::DItem;
using Script::GraphicItems::WImage::ChannelBlue;
using Script::GraphicItems::WImage::ChannelGreen;
using Script::GraphicItems::WImage::ChannelID;
using Script::GraphicItems::WImage::ChannelIDs;
using Script::GraphicItems::WImage::ChannelRed;
using Script::GraphicItems::WImage::Image;

namespace {

QImage twoByOne()
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(10, 20, 30));
    image.setPixel(1, 0, qRgb(200, 150, 100));
    return image;
}

} // namespace

class TestImage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void isAnImageNode()
    {
        const Image image(QStringLiteral("Job.Camera.Image"), DItem::IoOutput);
        QCOMPARE(image.iDataType(), QStringLiteral("IDataImage"));
        QCOMPARE(image.ioType(), DItem::IoOutput);
        QCOMPARE(image.linkMode(), Image::LinkWholeImage);
        QVERIFY(image.channelList().isEmpty());
        QCOMPARE(image.linkedChannelCount(), 0);
        QVERIFY(image.qImage().isNull());
        QCOMPARE(image.viewMode(), ChannelIDs());
    }

    void linkModeNumbers()
    {
        QCOMPARE(int(Image::LinkWholeImage), 0);
        QCOMPARE(int(Image::LinkPerChannel), 1);
        Image image;
        image.setLinkMode(Image::LinkPerChannel);
        QCOMPARE(image.linkMode(), Image::LinkPerChannel);
        QVERIFY(image.linkMode() == 1);
    }

    void channelsAreNodes()
    {
        Image image(QStringLiteral("Job.Camera.Image"), DItem::IoInput);
        DItem* red = image.poAddChannel(QStringLiteral("Red"));
        DItem* green = image.poAddChannel(QStringLiteral("Green"));
        QCOMPARE(image.channelList(), (QList<DItem*> {red, green}));
        QCOMPARE(red->iDataPath(), QStringLiteral("Job.Camera.Image.Red"));
        QCOMPARE(red->unTranslatedName(), QStringLiteral("Red"));
        QCOMPARE(red->ioType(), DItem::IoInput);
        QCOMPARE(red->property("IData.Description").toString(), QStringLiteral("Red"));
        QCOMPARE(red->parent(), &image);
    }

    void linkedChannelCount_data()
    {
        QTest::addColumn<int>("linked");
        for (int linked = 0; linked <= 3; ++linked)
            QTest::addRow("%d of 3", linked) << linked;
    }

    void linkedChannelCount()
    {
        QFETCH(int, linked);
        Image image(QStringLiteral("Job.Camera.Image"));
        image.setLinkMode(Image::LinkPerChannel);
        const QStringList names {QStringLiteral("Red"), QStringLiteral("Green"),
                                 QStringLiteral("Blue")};
        for (int i = 0; i < names.size(); ++i) {
            DItem* channel = image.poAddChannel(names.at(i));
            channel->setLinked(i < linked);
        }
        QCOMPARE(image.linkedChannelCount(), linked);
    }

    void gapsInTheChannelList()
    {
        Image image(QStringLiteral("Job.Camera.Image"));
        auto* own = new DItem(QStringLiteral("Job.Camera.Image.Gray"),
                              QStringLiteral("IDataImageChannel"));
        own->setLinked(true);
        image.vAppendChannel(nullptr);
        image.vAppendChannel(own);
        QCOMPARE(image.channelList().size(), 2);
        QCOMPARE(image.channelList().at(0), nullptr);
        QCOMPARE(own->parent(), &image);
        QCOMPARE(image.linkedChannelCount(), 1);

        // A channel the host deletes becomes a gap rather than a dangling entry.
        delete own;
        QCOMPARE(image.channelList().size(), 2);
        QCOMPARE(image.channelList().at(1), nullptr);
        QCOMPARE(image.linkedChannelCount(), 0);
    }

    void viewModeIsObservable()
    {
        Image image;
        image.setViewMode(ChannelIDs(ChannelRed | ChannelBlue));
        QCOMPARE(image.viewMode(), ChannelIDs(ChannelRed | ChannelBlue));
        image.setViewMode(QFlags<ChannelID>());
        QCOMPARE(image.viewMode(), ChannelIDs());
    }

    void emptyViewModeShowsTheWholeImage()
    {
        Image image;
        image.setQImage(twoByOne());
        image.setViewMode(ChannelGreen);
        image.setViewMode({});
        QCOMPARE(image.qImage(), twoByOne());
        QCOMPARE(image.sourceImage(), twoByOne());
    }

    void oneChannelShowsAsGrey_data()
    {
        QTest::addColumn<int>("channel");
        QTest::addColumn<int>("left");
        QTest::addColumn<int>("right");
        QTest::newRow("red") << int(ChannelRed) << 10 << 200;
        QTest::newRow("green") << int(ChannelGreen) << 20 << 150;
        QTest::newRow("blue") << int(ChannelBlue) << 30 << 100;
    }

    void oneChannelShowsAsGrey()
    {
        QFETCH(int, channel);
        QFETCH(int, left);
        QFETCH(int, right);
        Image image;
        image.setQImage(twoByOne());
        image.setViewMode(ChannelIDs(channel));
        const QImage& view = image.qImage();
        QCOMPARE(view.format(), QImage::Format_Grayscale8);
        QCOMPARE(view.size(), QSize(2, 1));
        QCOMPARE(int(view.constScanLine(0)[0]), left);
        QCOMPARE(int(view.constScanLine(0)[1]), right);
        // The source stays as it was.
        QCOMPARE(image.sourceImage(), twoByOne());
    }

    void twoChannelsBlackenTheThird()
    {
        Image image;
        image.setViewMode(ChannelIDs(ChannelRed | ChannelBlue));
        // The mode applies to an image given after it as well.
        image.setQImage(twoByOne());
        QCOMPARE(image.qImage().pixel(0, 0), qRgb(10, 0, 30));
        QCOMPARE(image.qImage().pixel(1, 0), qRgb(200, 0, 100));
    }

    void everyChannelIsTheWholeImage()
    {
        Image image;
        image.setQImage(twoByOne());
        image.setViewMode(ChannelIDs(ChannelRed | ChannelGreen | ChannelBlue));
        QCOMPARE(image.qImage(), twoByOne());
    }
};

QTEST_MAIN(TestImage)
#include "tst_image.moc"
