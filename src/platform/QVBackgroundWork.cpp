#include "platform/QVBackgroundWork.h"

#include <QCoreApplication>
#include <QEvent>

#include <system_error>

QVBackgroundWork::QVBackgroundWork(const Work &work, QObject *parent)
    : QObject(parent)
{
    try {
        m_thread = std::jthread([this, work](const std::stop_token &stop) {
            work(stop);
            postEnd();
        });
    } catch (const std::system_error &) {
        postEnd();
    }
}

void QVBackgroundWork::postEnd()
{
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void QVBackgroundWork::customEvent(QEvent *)
{
    // After the join, everything that the thread has written is safe to read.
    if (m_thread.joinable())
        m_thread.join();
    deleteLater();
    Q_EMIT finished();
}
