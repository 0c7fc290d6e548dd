#include "quick/QuickTestCase.h"

#include <QRandomGenerator>

using namespace std::chrono_literals;

/// Users and hosts that do whatever comes to their mind, in any order.
class TestQuickAtRandom : public QuickTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothingBreaks_data()
    {
        QTest::addColumn<quint32>("seed");
        for (int seed = 1; seed <= std::max(qEnvironmentVariableIntValue("QUARVO_SEEDS"), 6); ++seed)
            QTest::addRow("%d", seed) << quint32(seed);
    }

    void nothingBreaks()
    {
        QFETCH(quint32, seed);
        m_random.seed(seed);
        // The host answers some signals by an action of its own.
        outcomes().heard = [this](const QString &) {
            if (m_depth == 0 && any(3) == 0)
                act();
        };
        constexpr int steps = 150;
        for (int i = 0; i < steps; ++i) {
            act();
            advance(1ms * any(300));
            QCoreApplication::processEvents();
        }
        outcomes().heard = {};
        pass(2000ms);
        QVERIFY(said().filter(q("closed")).size() + said().filter(q("passed")).size() <= m_starts);
    }

private:
    [[nodiscard]] int any(int count) { return m_random.bounded(count); }

    void act()
    {
        const QString mode = QStringList{q("button"), q("invisible"), q("panel")}.at(any(3));
        const QString request = QStringList{config, click, verify, picture}.at(any(4));
        const Qt::Key keys[] = {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Return, Qt::Key_Right, Qt::Key_Escape};
        const std::function<void()> actions[] = {
            [&] { start(mode); },
            [&] { start(mode); },
            [&] { reset(mode); },
            [&] { unload(mode); },
            [&] {
                QTest::mouseClick(&window(), Qt::LeftButton, {},
                                  {any(window().width()), any(window().height())});
            },
            [&] { QTest::keyClick(&window(), keys[any(int(std::size(keys)))]); },
            [&] { window().setVisible(!window().isVisible()); },
            [&] { window().resize(300 + any(500), 300 + any(400)); },
            [&] { service().delay(request, 1ms * any(400)); },
            [&] {
                service().extend(verify, {{q("code"), any(2) ? q("0103") : q("0104")}});
            },
            [&] { isOpen() ? clickOn(q("closeButton")) : void(); },
            [&] { item(picture) ? drawWithFinger(waveFrom({})) : void(); },
            [&] { item(picture) ? stroke() : void(); },
        };
        ++m_depth;
        ++m_starts;
        actions[any(int(std::size(actions)))]();
        --m_depth;
    }

    QRandomGenerator m_random;
    int m_depth = 0;
    int m_starts = 0;
};

QV_TEST(TestQuickAtRandom)
#include "TestQuickAtRandom.moc"
