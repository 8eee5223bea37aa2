// A program outside the project that uses the installed headers and libraries.
#include "controls/intervalmapper.h"
#include "navigator/nodeinfo.h"
#include "qtpropertymanager.h"
#include "qttreepropertybrowser.h"
#include "sdk/ditem.h"
#include "sdk/wappsettings.h"
#include "wutils/pluginversion.h"
#include "wutils/wrequest.h"

#include <QApplication>
#include <QVariant>

#include <cstdio>

static int failures = 0;

static void check(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "consumer: %s failed\n", what);
        ++failures;
    }
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);

    Helpers::NodeInfo::setNodeID("7");
    Helpers::NodeInfo::setNodeName("Camera");
    check(Helpers::NodeInfo::toString() == "ID:7/NAME:Camera", "NodeInfo::toString");

    const IntervalMapper mapper(Interval(0, 100, 1));
    check(mapper.valueToWidget(37) == -2147483611L, "IntervalMapper::valueToWidget");

    std::string text;
    wutils::PluginVersion(1, 0, 0, 22780) >> text;
    check(text == "1.0.0", "PluginVersion text");

    const WRequest<QVariant> request(0, 9, WParam<QVariant>(), WaitOnReply, 25000);
    check(request.empty(), "WRequest without parameters");

    Script::DItem node(QStringLiteral("Job.Camera.Exposure"), QStringLiteral("IDataBasicInt"),
                       Script::DItem::IoInput);
    node.setProperty("IDataNumeric.DynamicValue", 250);
    check(node.unTranslatedName() == QLatin1String("Exposure"), "DItem name from its path");
    check(node.property("IDataNumeric.DynamicValue").toInt() == 250, "DItem dynamic value");
    check(Settings::WAppSettings::instance()->find_setting(QStringLiteral("NO_SUCH_GROUP"))
              == nullptr,
          "WAppSettings::find_setting of a missing group");

    // The property browser is used through its published headers, as code written for it is.
    QtTreePropertyBrowser browser;
    QtIntPropertyManager manager;
    QtProperty* exposure = manager.addProperty(QStringLiteral("Exposure"));
    manager.setRange(exposure, 10, 100);
    manager.setValue(exposure, 250);
    browser.addProperty(exposure);
    check(manager.value(exposure) == 100, "QtIntPropertyManager clamps to its range");
    check(browser.topLevelItems().size() == 1, "QtTreePropertyBrowser::addProperty");

    return failures == 0 ? 0 : 1;
}
