#pragma once

#include <QObject>
#include <QStringList>

/// What happened so far, a line each: printed as it comes and shown by the window.
class EventLog : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// \a kind is one word (ready, token, wrong, error, closed …); \a detail is kept to one line.
    void add(const QString &kind, const QString &detail = {});

    [[nodiscard]] const QStringList &kinds() const { return m_kinds; }
    [[nodiscard]] bool hasToken() const { return m_kinds.contains(QLatin1String("token")); }

Q_SIGNALS:
    void added(const QString &line);

private:
    QStringList m_kinds;
};
