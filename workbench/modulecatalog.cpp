#include "modulecatalog.h"

#include <QJsonDocument>

const char* const ModuleCatalog::kTypeKey = "Workbench.ModuleType";

namespace {

ModuleCatalog::Entry entry(const char* id, const char* name, const char* icon, bool acquisition,
                           bool unique, const char* nodes)
{
    ModuleCatalog::Entry made;
    made.id = QString::fromLatin1(id);
    made.name = QString::fromLatin1(name);
    made.icon = QStringLiteral(":/workbench/icons/%1.svg").arg(QLatin1String(icon));
    made.acquisition = acquisition;
    made.unique = unique;
    made.nodes = QJsonDocument::fromJson(nodes).object();
    made.nodes.insert(QStringLiteral("icon"), made.icon);
    QJsonObject properties;
    properties.insert(QString::fromLatin1(ModuleCatalog::kTypeKey), made.id);
    made.nodes.insert(QStringLiteral("properties"), properties);
    // The one module of its kind cannot be copied.
    if (unique)
        made.nodes.insert(QStringLiteral("copyable"), false);
    return made;
}

} // namespace

const QList<ModuleCatalog::Entry>& ModuleCatalog::entries()
{
    static const QList<Entry> all {
        entry("camera", "Camera", "camera", true, false, R"({"nodes": [
            {"name": "Exposure", "description": "Exposure Time [us]", "type": "IDataBasicInt",
             "io": "input", "value": 1000, "min": 10, "max": 100000, "step": 10},
            {"name": "Gain", "description": "Gain [dB]", "type": "IDataBasicDouble",
             "io": "input", "value": 0, "min": 0, "max": 24, "step": 0.1},
            {"name": "Image", "type": "IDataImage", "io": "output",
             "image": {"width": 160, "height": 120, "color": "#6d8fb3"}}]})"),
        entry("imagefilter", "ImageFilter", "filter", false, false, R"({"nodes": [
            {"name": "InputImage", "description": "Input Image", "type": "IDataImage",
             "io": "input"},
            {"name": "Strength", "type": "IDataBasicInt", "io": "input", "value": 3,
             "min": 1, "max": 15},
            {"name": "OutputImage", "description": "Output Image", "type": "IDataImage",
             "io": "output", "image": {"width": 160, "height": 120, "color": "#8d8d8d"}}]})"),
        entry("blobfinder", "BlobFinder", "blob", false, false, R"({"nodes": [
            {"name": "Threshold", "type": "IDataBasicInt", "io": "input", "value": 128,
             "min": 0, "max": 255},
            {"name": "MinArea", "description": "Minimum Area [px]", "type": "IDataBasicInt",
             "io": "input", "value": 50, "min": 1, "max": 100000},
            {"name": "Count", "description": "Blob Count", "type": "IDataBasicInt",
             "io": "output", "value": 0, "dynamicMin": 0, "dynamicMax": 20}]})"),
        entry("edgemeasure", "EdgeMeasure", "edge", false, false, R"({"nodes": [
            {"name": "Contrast", "type": "IDataBasicInt", "io": "input", "value": 30,
             "min": 1, "max": 255},
            {"name": "Distance", "description": "Distance [mm]", "type": "IDataBasicDouble",
             "io": "output", "value": 0, "dynamicMin": 9.8, "dynamicMax": 10.2}]})"),
        entry("ocrreader", "OcrReader", "ocr", false, false, R"({"nodes": [
            {"name": "Expected", "description": "Expected Text", "type": "IDataBasicString",
             "io": "input", "value": ""},
            {"name": "Text", "description": "Read Text", "type": "IDataBasicString",
             "io": "output", "value": ""}]})"),
        entry("result", "Result", "result", false, true, R"({"nodes": [
            {"name": "Pass", "description": "Part Passed", "type": "IDataBasicBool",
             "io": "input", "value": true},
            {"name": "Rejected", "description": "Parts Rejected", "type": "IDataBasicInt64",
             "io": "output", "value": 0, "dynamicMin": 0, "dynamicMax": 1000000}]})"),
    };
    return all;
}

const ModuleCatalog::Entry* ModuleCatalog::find(const QString& id)
{
    for (const Entry& each : entries()) {
        if (each.id == id)
            return &each;
    }
    return nullptr;
}

const ModuleCatalog::Entry* ModuleCatalog::kindOf(const QObject& module)
{
    return find(module.property(kTypeKey).toString());
}
