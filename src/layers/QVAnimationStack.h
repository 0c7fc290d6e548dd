#pragma once

#include "layers/QVAnimation.h"

#include <QString>
#include <QStringList>

#include <chrono>

/// The animations of one layer, in the order in which they were added; a later one wins.
class QVAnimationStack
{
public:
    using Time = std::chrono::nanoseconds;
    using StoppedList = std::vector<QVAnimation::Stopped>;

    /// Adds \a animation from \a time on. Under a key that is not empty it replaces what was there;
    /// returns who has to be told of that.
    StoppedList add(QVAnimation animation, const QString &key, Time time);
    StoppedList remove(const QString &key);
    StoppedList removeAll();
    /// Ends what is over at \a time and appends who has to be told.
    void finish(Time time, StoppedList &ended);

    [[nodiscard]] QStringList keys() const;
    [[nodiscard]] bool isEmpty() const { return m_entries.empty(); }
    /// Whether anything is still to come.
    [[nodiscard]] bool isRunning() const;
    /// When the next of those that end will do so.
    [[nodiscard]] std::optional<Time> nextEnd() const;
    [[nodiscard]] QVLayerProperties presented(const QVLayerProperties &model, Time time) const;

private:
    struct Entry
    {
        QString key;
        QVAnimation animation;
        Time start;
        std::optional<Time> end;
        bool over = false;
    };

    std::vector<Entry> m_entries;
};
