#pragma once

#include "sandbox/SandboxPuzzle.h"

#include <QByteArray>
#include <QFuture>
#include <QHash>
#include <QQueue>
#include <QThreadPool>

#include <memory>
#include <optional>

/// The latest pictures. Drawing begins on other threads as soon as a picture is added.
class SandboxPictureStore
{
public:
    SandboxPictureStore();

    /// \a stem is the picture's path without the part for its size and format.
    void add(const QString &stem, const SandboxPuzzle &puzzle);
    void addBroken(const QString &stem);
    /// The file at \a path; empty if there is no such picture.
    [[nodiscard]] std::optional<QFuture<QByteArray>> file(const QString &path);

private:
    struct Picture
    {
        SandboxPuzzle puzzle;
        QFuture<QByteArray> sharp;
        std::optional<QFuture<QByteArray>> plain;
    };

    void keep(const QString &stem, const Picture &picture);
    [[nodiscard]] QFuture<QByteArray> drawn(const SandboxPuzzle &puzzle, int scale);

    QHash<QString, Picture> m_pictures;
    QQueue<QString> m_order;
    QThreadPool m_pool;
};
