#include "support/DrawServiceTestCase.h"

#include "settings/QVSDKManager.h"

using namespace std::chrono_literals;

QStringList DrawServiceTestCase::words(const QString &text)
{
    return text.split(q(", "), Qt::SkipEmptyParts);
}

void DrawServiceTestCase::prepare()
{
    m_service = std::make_unique<DrawService>();
    m_service->extend(click, {{q("token"), q("click-token")}});
    m_forgotten = 0;
    QVSDKManager::setPreferredLanguage(q("en"));
}

void DrawServiceTestCase::finish()
{
    settle();
    m_service.reset();
    QVSDKManager::setAttemptTimeout(0ms);
    QVSDKManager::setTokenLifetime(0ms);
}

void DrawServiceTestCase::answerCode(const QString &what, const QString &code)
{
    m_service->extend(what, {{q("code"), code}});
}

void DrawServiceTestCase::answerForStatus(int status)
{
    if (status == 2)
        delay(outageSwitch, std::chrono::hours(1));
    if (status == 3)
        service().answer(outageSwitch, {{q("active"), true}});
    if (status == 4)
        passByClick();
    if (status == 5)
        answerCode(config, q("0101"));
}

void DrawServiceTestCase::settle() const
{
    QVERIFY(waitFor([this] {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return m_service->isQuiet();
    }));
}

void DrawServiceTestCase::pass(std::chrono::milliseconds duration) const
{
    const auto stretch = std::max(50ms, duration / 10);
    for (auto left = duration; left > 0ms; left -= stretch) {
        settle();
        advance(std::min(left, stretch));
    }
    settle();
}
