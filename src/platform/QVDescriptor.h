#pragma once

#include <unistd.h>
#include <utility>

/// Owns an open file descriptor and closes it when destroyed.
class QVDescriptor
{
public:
    QVDescriptor() = default;
    explicit QVDescriptor(int value)
        : m_value(value)
    {
    }
    QVDescriptor(QVDescriptor &&other) noexcept
        : m_value(std::exchange(other.m_value, none))
    {
    }
    QVDescriptor &operator=(QVDescriptor &&other) noexcept
    {
        std::swap(m_value, other.m_value);
        return *this;
    }
    ~QVDescriptor()
    {
        if (isOpen())
            ::close(m_value);
    }

    [[nodiscard]] bool isOpen() const { return m_value >= 0; }
    [[nodiscard]] int value() const { return m_value; }

private:
    static constexpr int none = -1;

    int m_value = none;
};
