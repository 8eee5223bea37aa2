#ifndef PROPERTYBROWSER_EDITORS_NUMERICVALUECHECK_H
#define PROPERTYBROWSER_EDITORS_NUMERICVALUECHECK_H

#include <QString>

namespace PropertyBrowser {
namespace Editors {

/// The check that both numeric value panels make of their fields after each change.
namespace NumericValueCheck {

/// The first report waits until the caller has filled the fields.
constexpr int kFirstReportDelayMs = 10;

/// What a panel is used to edit: the limits, while the field of the actual value is disabled,
/// or the value.
constexpr int kEditLimits = 1;
constexpr int kEditValue = 2;

/// Whether what stands in a panel may be accepted, and if not, why; the message is empty when
/// it may.
struct Verdict
{
    bool valid;
    QString message;
};

/// Judges the limits alone for kEditLimits, else whether @p value lies within them; equal
/// limits are valid. The messages are shown as they are, untranslated.
template<typename Number>
Verdict judge(int editType, Number minimum, Number maximum, Number value)
{
    if (editType == kEditLimits) {
        if (minimum > maximum)
            return {false, QStringLiteral("Min value is greater than Max.")};
        return {true, QString()};
    }
    if (value >= minimum && maximum >= value)
        return {true, QString()};
    return {false, QStringLiteral("Value outside of range")};
}

} // namespace NumericValueCheck

} // namespace Editors
} // namespace PropertyBrowser

#endif
