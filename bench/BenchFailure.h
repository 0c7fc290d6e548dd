#pragma once

#include <QString>

#include <stdexcept>

/// A program could not be started or has failed.
class BenchFailure : public std::runtime_error
{
public:
    explicit BenchFailure(const QString &reason)
        : std::runtime_error(reason.toStdString())
    {
    }
};
