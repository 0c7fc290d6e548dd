#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "modes/Opener.h"
#include "popup/QVCloseButton.h"
#include "popup/QVViewController.h"
#include "popup/QVWindow.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "settings/QVSDKManager.h"

#include <QScreen>

using namespace std::chrono_literals;

class TestPopup : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsItselfAliveUntilDismissed()
    {
        open();
        const auto controller = m_controller.lock();
        controller->hiddenWindow();
        QVERIFY(!popup());
        controller->displayWindow();
        QVERIFY(popup());
        for (int i = 0; i < 2; ++i)
            controller->dismissWindow();
        controller->displayWindow();
        controller->hiddenWindow();
        QCOMPARE(popupCount(), 0);
        QCOMPARE(controller.use_count(), 1);
    }

    void closeHidesAPictureAndDismissesNone_data()
    {
        const auto row = addColumns<bool>({"hasPicture"});
        row("picture", true);
        row("none", false);
    }

    void closeHidesAPictureAndDismissesNone()
    {
        QFETCH(bool, hasPicture);
        if (!hasPicture) {
            m_config = nullptr;
            delay(outageSwitch, 1h);
        }
        open();
        QVERIFY(!hasPicture || waitForPicture());
        if (hasPicture)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        else
            pressClose();
        QCOMPARE(m_opener->heard, words("close"));
        QVERIFY(!popup());
        QCOMPARE(popupCount(), hasPicture ? 1 : 0);
        QCOMPARE(m_controller.expired(), !hasPicture);
    }

    void successDismisses()
    {
        open();
        QVERIFY(waitForPicture());
        strokeAndVerify();
        QCOMPARE(popupCount(), 1);
        pass(1000ms);
        QCOMPARE(popupCount(), 0);
        QVERIFY(m_controller.expired());
        QCOMPARE(m_opener->heard, words("main-token"));
        QVERIFY(m_opener->windowWasThere);
    }

    void hiddenPopupKeepsNoTimerButTheCountdown()
    {
        open();
        QVERIFY(waitForPicture());
        m_controller.lock()->hiddenWindow();
        pass(2000ms);
        QCOMPARE(time().pendingCount(), 1);
        forgetAsked();
        pass(177s);
        QCOMPARE(asked(), QStringList());
        m_controller.lock()->displayWindow();
        settle();
        QCOMPARE(asked(), QStringList{refresh});
        m_controller.lock()->dismissWindow();
        QCOMPARE(popupCount(), 0);
        settle();
        QCOMPARE(time().pendingCount(), 0);
    }

    void placesItsParts_data()
    {
        const auto row = addColumns<QSize, QRect>({"host", "screen"});
        row("phone", QSize(320, 480), QRect(0, 0, 320, 480));
        row("narrowest card", QSize(481, 600), QRect(33, 110, 414, 379));
        row("desktop", QSize(1280, 720), QRect(433, 170, 414, 379));
    }

    void placesItsParts()
    {
        QFETCH(QSize, host);
        QFETCH(QRect, screen);
        open();
        ModesTestCase::host().resize(host);
        QCOMPARE(popup()->geometry(), QRect(QPoint(), host));
        QCOMPARE(drawView()->geometry(), screen);
        QCOMPARE(drawView()->contentViewWidth(), std::min(414, screen.width()));
        const QRect close = popup()->findChild<QVCloseButton *>()->geometry();
        QCOMPARE(close.size(), QSize(32, 32));
        QCOMPARE(close.topRight(), screen.topRight());
        const QRect support = popup()->findChild<QWidget *>(q("supportLabel"))->geometry();
        QCOMPARE(screen.bottomRight() - support.bottomRight(), QPoint(10, 5));

        advance(300ms);
        const QImage seen = popup()->grab().toImage();
        QCOMPARE(seen.pixelColor(screen.center().x(), screen.top() + 2).value() > 240, true);
        QCOMPARE(seen.pixelColor(0, 40).value() > 200, screen.left() == 0);
    }

    void takesTheRoomThatTheHostChose_data()
    {
        const auto row = addColumns<QVPopupPresentation, bool, bool>({"presentation", "isWindow", "isCard"});
        row("automatic", QVPopupPresentation::Automatic, false, true);
        row("window", QVPopupPresentation::WholeWindow, false, false);
        row("screen", QVPopupPresentation::WholeScreen, true, true);
    }

    void takesTheRoomThatTheHostChose()
    {
        QFETCH(QVPopupPresentation, presentation);
        QFETCH(bool, isWindow);
        QFETCH(bool, isCard);
        QVSDKManager::setPopupPresentation(presentation);
        open();
        QCOMPARE(popup()->isWindow(), isWindow);
        QCOMPARE(popup()->size(), isWindow ? QGuiApplication::primaryScreen()->size() : host().size());
        QCOMPARE(drawView()->width(), isCard ? 414 : popup()->width());
        popup()->close();
        QCOMPARE(m_opener->heard, words("close"));
    }

    void unfoldsAtEachDisplay()
    {
        open();
        QVERIFY(waitForPicture());
        for (int i = 0; i < 2; ++i) {
            m_controller.lock()->hiddenWindow();
            advance(1s);
            m_controller.lock()->displayWindow();
            advance(249ms);
            QVERIFY(drawView()->graphicsEffect());
            advance(1ms);
            QVERIFY(!drawView()->graphicsEffect());
        }
    }

    void staysAboveTheHostsWidgets()
    {
        open();
        const QWidget *const window = popup();
        QWidget late(&host());
        late.setGeometry(host().rect());
        late.show();
        late.raise();
        QCOMPARE(host().children().constLast(), window);
        // Of two popups the later one stays on top, and neither fights for it.
        Opener other(&host());
        const auto second =
            QVViewController::showQvWithVerifyStyle(QVVerifyStylePopup, m_config, m_click, &other);
        late.raise();
        QVERIFY(host().children().constLast() != window);
        QVERIFY(host().children().constLast() != &late);
        second->dismissWindow();
    }

    void ignoresTheHostsStyleSheet()
    {
        open();
        QVERIFY(waitForPicture());
        pass(1s);
        const auto look = [] {
            QImage image(popup()->size(), QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::white);
            popup()->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
            return image;
        };
        const QImage plain = look();
        host().setStyleSheet(q("* { background: red; color: green; border: 3px solid blue; font: 30px; }"));
        QVERIFY(look() == plain);
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        m_opener = std::make_unique<Opener>(&host());
        m_config = std::make_shared<QVConfigResponseModel>();
        const QString address = service().addresses().apiHost();
        m_config->setApi_server(address + q("/api"));
        m_config->setCdn_servers({address + q("/pictures")});
        m_click = std::make_shared<QVClickResponseModel>();
        m_click->setImg(q("1"));
    }

    void finish() override
    {
        QVSDKManager::setPopupPresentation(QVPopupPresentation::Automatic);
        m_opener.reset();
        if (const auto controller = m_controller.lock())
            controller->dismissWindow();
        ModesTestCase::finish();
    }

    void open()
    {
        m_controller =
            QVViewController::showQvWithVerifyStyle(QVVerifyStylePopup, m_config, m_click, m_opener.get());
        m_opener->controller = m_controller;
    }

    std::unique_ptr<Opener> m_opener;
    std::shared_ptr<QVConfigResponseModel> m_config;
    std::shared_ptr<QVClickResponseModel> m_click;
    std::weak_ptr<QVViewController> m_controller;
};

QV_TEST(TestPopup)
#include "TestPopup.moc"
