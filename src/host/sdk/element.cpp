#include "sdk/element.h"

namespace Assistant {

Element::Element(QObject* parent)
    : QObject(parent)
{ }

Element::Element(const QString& name, const QString& text, QObject* parent)
    : QObject(parent)
    , m_sName(name)
    , m_sText(text)
{ }

Element::~Element() = default;

QString Element::name() const
{
    return m_sName;
}

void Element::setName(const QString& name)
{
    if (name == m_sName)
        return;
    m_sName = name;
    emit nameChanged();
}

QString Element::text() const
{
    return m_sText;
}

void Element::setText(const QString& text)
{
    if (text == m_sText)
        return;
    m_sText = text;
    emit textChanged();
}

bool Element::bDone() const
{
    return m_bDone;
}

void Element::setDone(bool done)
{
    if (done == m_bDone)
        return;
    m_bDone = done;
    emit doneChanged();
}

} // namespace Assistant
