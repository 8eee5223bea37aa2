#ifndef TABLETRANSLATOR_H
#define TABLETRANSLATOR_H

#include <QHash>
#include <QTranslator>

/// A translator filled from a table, so that a test needs no compiled translation file.
class TableTranslator : public QTranslator
{
public:
    /// Translates @p source in @p context as @p translation.
    void add(const QString& context, const QString& source, const QString& translation)
    {
        m_hashTexts.insert(context + QLatin1Char('\n') + source, translation);
    }
    bool isEmpty() const override { return m_hashTexts.isEmpty(); }
    QString translate(const char* context, const char* source, const char* disambiguation,
                      int n) const override
    {
        Q_UNUSED(disambiguation)
        Q_UNUSED(n)
        return m_hashTexts.value(QString::fromUtf8(context) + QLatin1Char('\n')
                                 + QString::fromUtf8(source));
    }

private:
    QHash<QString, QString> m_hashTexts;
};

#endif
