#include "modes/ModesTestCase.h"
#include "popup/QVWindow.h"
#include "views/QVInvisibleAnimationView.h"

#include <Quarvo/QVInvisibleManager.h>
#include <Quarvo/QVSDKManager.h>

#include <QApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QWindow>

using namespace std::chrono_literals;

/// Invisible mode in an application whose window is no widget, as Qt Quick's are.
class TestForeignWindow : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void popupLiesOverTheWindow()
    {
        destroyHost();
        openPopup();
        QCOMPARE(popup()->geometry(), m_window->geometry());
        QCOMPARE(popup()->windowHandle()->transientParent(), m_window.get());
        QVERIFY(popup()->popupScreen().width() < m_window->width());
        m_window->setGeometry(60, 50, 400, 500);
        QVERIFY(waitFor([this] { return popup()->geometry() == m_window->geometry(); }));
        QCOMPARE(popup()->popupScreen(), QRect(0, 0, 400, 500));
    }

    void popupTakesTheScreenWhereTheHostWantsIt()
    {
        destroyHost();
        QVSDKManager::setPopupPresentation(QVPopupPresentation::WholeScreen);
        openPopup();
        QCOMPARE(popup()->geometry(), QGuiApplication::primaryScreen()->geometry());
        QCOMPARE(popup()->windowHandle()->transientParent(), m_window.get());
    }

    void badgeTurnsInItsMiddle()
    {
        destroyHost();
        m_manager->startInsivible();
        QCoreApplication::sendPostedEvents();
        const QWidgetList widgets = QApplication::topLevelWidgets();
        QRect badge;
        for (const QWidget *widget : widgets) {
            if (const auto *const view = qobject_cast<const QVInvisibleAnimationView *>(widget))
                badge = view->frame();
        }
        QCOMPARE(badge.center(), m_window->geometry().center());
    }

    void endsWithTheWindow_data()
    {
        addColumns<QString, bool>({"end", "whileAsking"});
        for (const char *end : {"close", "destroy"}) {
            QTest::addRow("%s, asking", end) << QString::fromLatin1(end) << true;
            QTest::addRow("%s, drawing", end) << QString::fromLatin1(end) << false;
        }
    }

    void endsWithTheWindow()
    {
        QFETCH(QString, end);
        QFETCH(bool, whileAsking);
        destroyHost();
        const QSignalSpy closed(m_manager.get(), &QVInvisibleManager::closed);
        if (whileAsking)
            m_manager->startInsivible();
        else
            openPopup();
        if (end == QLatin1String("close"))
            m_window->close();
        else
            m_window.reset();
        advance(1ms);
        QCOMPARE(closed.size(), 1);
        QVERIFY(!popup());
    }

    void widgetsGoFirst()
    {
        showActive(host());
        openPopup();
        QCOMPARE(popup()->parentWidget(), &host());
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        m_window = std::make_unique<QWindow>();
        m_window->setGeometry(40, 30, 640, 600);
        m_window->show();
        m_manager = std::make_unique<QVInvisibleManager>();
    }

    void finish() override
    {
        QVSDKManager::setPopupPresentation(QVPopupPresentation::Automatic);
        m_manager.reset();
        m_window.reset();
        ModesTestCase::finish();
    }

    void openPopup() const
    {
        m_manager->startInsivible();
        QVERIFY(waitFor([] { return popup() != nullptr; }));
    }

    std::unique_ptr<QWindow> m_window;
    std::unique_ptr<QVInvisibleManager> m_manager;
};

QV_TEST(TestForeignWindow)
#include "TestForeignWindow.moc"
