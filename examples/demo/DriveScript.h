#pragma once

#include <QPointF>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// One line of a drive file.
struct DriveAction
{
    enum class Kind {
        Tap,
        Press,
        Hold,
        Lift,
        Start,
        WaitEvent,
        WaitTime,
        Stroke,
        Solve,
        Type,
        Keys,
        Done,
        Refresh,
        Retry,
        Close,
        Reset,
        /// Disables the whole window.
        Disable,
        Resize,
        Shot,
        /// Ends the drive successfully without a token.
        End
    };

    Kind kind = Kind::Tap;
    /// The event to wait for, the text to type, or the name of the picture.
    QString text;
    QVector<QPointF> points;
    /// Key codes, in order.
    QVector<int> keys;
    QSize size;
    int milliseconds = 0;
    int line = 0;
};

/// A drive file: one action per line. Empty lines and lines that begin with # are ignored.
class DriveScript
{
public:
    /// If a line is malformed, the result is empty, and \a problem names the line and the reason.
    [[nodiscard]] static std::optional<DriveScript> parse(const QByteArray &source, QString &problem);
    [[nodiscard]] static std::optional<DriveScript> read(const QString &path, QString &problem);

    [[nodiscard]] const QVector<DriveAction> &actions() const { return m_actions; }
    [[nodiscard]] bool takesPictures() const;

private:
    QVector<DriveAction> m_actions;
};
