#include "settings/QVText.h"

#include "settings/QVLocalization.h"

QVText::QVText(QLatin1String key)
    : m_source([key] { return qv_localizedStringForKey(key); })
{
}

QVText::QVText(const QString &text)
    : m_source(text.isNull() ? Source() : [text] { return text; })
{
}
