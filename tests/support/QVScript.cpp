#include "support/QVScript.h"

QVScript QVScript::answer(const QByteArray &body, int status, const QByteArray &headers)
{
    return QVScript().send("HTTP/1.1 " + QByteArray::number(status) + " Status\r\nContent-Length: " +
                           QByteArray::number(body.size()) + "\r\n" + headers + "\r\n" + body);
}

QVScript &QVScript::send(const QByteArray &bytes)
{
    m_steps.append({Step::Kind::Send, bytes, {}});
    return *this;
}

QVScript &QVScript::wait(std::chrono::milliseconds duration)
{
    m_steps.append({Step::Kind::Wait, {}, duration});
    return *this;
}

QVScript &QVScript::close()
{
    m_steps.append({Step::Kind::Close, {}, {}});
    return *this;
}
