#pragma once

#include <QString>

#include <stdexcept>

/// Something did not run.
class BenchFailure : public std::runtime_error
{
public:
    explicit BenchFailure(const QString &reason)
        : std::runtime_error(reason.toStdString())
    {
    }
};
