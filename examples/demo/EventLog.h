#pragma once

#include <QObject>
#include <QStringList>

/// The events so far, one line each. They are printed at once and shown in the window.
class EventLog : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// \a kind is one word (ready, token, wrong, error, closed …). Line breaks in \a detail are removed.
    void add(const QString &kind, const QString &detail = {});

    [[nodiscard]] const QStringList &kinds() const { return m_kinds; }
    [[nodiscard]] bool hasToken() const { return m_kinds.contains(QLatin1String("token")); }

Q_SIGNALS:
    void added(const QString &line);

private:
    QStringList m_kinds;
};
