#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "modes/QVCloseButton.h"
#include "modes/QVSupportLabel.h"
#include "modes/QVUnfoldEffect.h"
#include "modes/QVViewController.h"
#include "modes/QVWindow.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "settings/QVSDKManager.h"

#include <QScreen>
#include <QSplitter>

using namespace std::chrono_literals;

namespace {

/// An opener that writes down what it hears.
class Opener : public QVViewControllerDelegate
{
public:
    void quarvoControllerVerifySuccessWithToken(const QString &token) override
    {
        heard.append(token);
        windowWasThere = windowWasThere || !controller.expired();
    }
    void qv_controllerCloseAction() override { heard.append(QStringLiteral("close")); }

    QStringList heard;
    std::weak_ptr<QVViewController> controller;
    bool windowWasThere = false;
};

} // namespace

class TestPopup : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsItselfAliveUntilDismissed();
    void closeHidesAPictureAndDismissesNone_data();
    void closeHidesAPictureAndDismissesNone();
    void successDismisses_data();
    void successDismisses();
    void everyEntryUnfolds();
    void hiddenPopupKeepsNoTimerButTheCountdown();
    void placesItsParts_data();
    void placesItsParts();
    void followsTheHostsSize();
    void takesTheRoomThatTheHostChose_data();
    void takesTheRoomThatTheHostChose();
    void staysAboveTheHostsWidgets();
    void endsWithTheHostsWindow_data();
    void endsWithTheHostsWindow();
    void leavesASplitterAlone();

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        m_opener = std::make_unique<Opener>();
        m_config = std::make_shared<QVConfigResponseModel>();
        const QString address = service().addresses().apiHost();
        m_config->setApi_server(address + QStringLiteral("/api"));
        m_config->setCdn_servers({address + QStringLiteral("/pictures")});
        m_click = std::make_shared<QVClickResponseModel>();
        m_click->setImg(QStringLiteral("1"));
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
        m_controller = QVViewController::showQvWithVerifyStyle(
            QVVerifyStylePopup, m_config, m_click, m_opener.get(), m_hostless ? nullptr : &host());
        m_opener->controller = m_controller;
    }

    [[nodiscard]] static qreal unfolded()
    {
        const auto *const effect = qobject_cast<QVUnfoldEffect *>(drawView()->graphicsEffect());
        return effect ? effect->scale() : 1.0;
    }

    std::unique_ptr<Opener> m_opener;
    std::shared_ptr<QVConfigResponseModel> m_config;
    std::shared_ptr<QVClickResponseModel> m_click;
    std::weak_ptr<QVViewController> m_controller;
    bool m_hostless = false;
};

void TestPopup::keepsItselfAliveUntilDismissed()
{
    open();
    QVERIFY(!m_controller.expired());
    const auto controller = m_controller.lock();
    for (int i = 0; i < 2; ++i) {
        controller->hiddenWindow();
        QVERIFY(!popup());
    }
    controller->displayWindow();
    QVERIFY(popup());
    for (int i = 0; i < 2; ++i)
        controller->dismissWindow();
    controller->displayWindow();
    controller->hiddenWindow();
    QCOMPARE(popupCount(), 0);
    QCOMPARE(controller.use_count(), 1);
    QVERIFY(!controller->canDirectlyShow());
    QCOMPARE(m_opener->heard, QStringList());
}

void TestPopup::closeHidesAPictureAndDismissesNone_data()
{
    QTest::addColumn<bool>("hasPicture");
    QTest::addColumn<bool>("byEscape");
    QTest::newRow("picture, button") << true << false;
    QTest::newRow("picture, escape") << true << true;
    QTest::newRow("none, button") << false << false;
    QTest::newRow("none, escape") << false << true;
}

void TestPopup::closeHidesAPictureAndDismissesNone()
{
    QFETCH(bool, hasPicture);
    QFETCH(bool, byEscape);
    if (!hasPicture) {
        m_config = nullptr;
        delay(outageSwitch, 1h);
    }
    open();
    QVERIFY(!hasPicture || waitForPicture());
    if (byEscape)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    else
        pressClose();
    QCOMPARE(m_opener->heard, words("close"));
    QVERIFY(!popup());
    QCOMPARE(popupCount(), hasPicture ? 1 : 0);
    QCOMPARE(m_controller.expired(), !hasPicture);
    if (!hasPicture)
        return;
    forgetAsked();
    m_controller.lock()->displayWindow();
    QVERIFY(drawView()->canInput().value_or(false));
    settle();
    QCOMPARE(asked(), QStringList());
}

void TestPopup::successDismisses_data()
{
    QTest::addColumn<bool>("hasOpener");
    QTest::newRow("opener") << true;
    QTest::newRow("no opener any more") << false;
}

void TestPopup::successDismisses()
{
    QFETCH(bool, hasOpener);
    open();
    QVERIFY(waitForPicture());
    strokeAndVerify();
    if (!hasOpener)
        m_opener.reset();
    QCOMPARE(popupCount(), 1);
    pass(1000ms);
    QCOMPARE(popupCount(), 0);
    QVERIFY(m_controller.expired());
    if (hasOpener) {
        QCOMPARE(m_opener->heard, words("main-token"));
        QVERIFY(m_opener->windowWasThere);
    }
}

void TestPopup::everyEntryUnfolds()
{
    open();
    QVERIFY(waitForPicture());
    for (int entry = 0; entry < 3; ++entry) {
        QCOMPARE(unfolded(), 0.0);
        advance(120ms);
        const qreal halfway = unfolded();
        QVERIFY2(halfway > 0.3 && halfway < 0.8, qPrintable(QString::number(halfway)));
        // Where the picture's lower edge will be, the card shows until then.
        const int edge = drawView()->geometry().center().y() + 414 * 23 / 80 - 4;
        QVERIFY(host().grab().toImage().pixelColor(350, edge).value() > 240);
        if (entry == 1)
            m_controller.lock()->displayWindow(); // Again while it unfolds.
        else {
            advance(150ms);
            QVERIFY(!drawView()->graphicsEffect());
            m_controller.lock()->hiddenWindow();
            m_controller.lock()->displayWindow();
        }
    }
}

void TestPopup::hiddenPopupKeepsNoTimerButTheCountdown()
{
    open();
    QVERIFY(waitForPicture());
    m_controller.lock()->hiddenWindow();
    pass(2000ms);
    QCOMPARE(time().pendingCount(), 1);
    forgetAsked();
    pass(177s);
    QCOMPARE(asked(), QStringList{refresh});
    m_controller.lock()->dismissWindow();
    QCOMPARE(popupCount(), 0);
    settle();
    QCOMPARE(time().pendingCount(), 0);
}

void TestPopup::placesItsParts_data()
{
    QTest::addColumn<QSize>("host");
    QTest::addColumn<QRect>("screen");
    QTest::newRow("phone") << QSize(320, 480) << QRect(0, 0, 320, 480);
    QTest::newRow("widest whole") << QSize(480, 480) << QRect(0, 0, 480, 480);
    QTest::newRow("narrowest card") << QSize(481, 600) << QRect(33, 40, 414, 520);
    QTest::newRow("desktop") << QSize(1280, 720) << QRect(433, 100, 414, 520);
}

void TestPopup::placesItsParts()
{
    QFETCH(QSize, host);
    QFETCH(QRect, screen);
    ModesTestCase::host().resize(host);
    open();
    QCOMPARE(popup()->geometry(), QRect(QPoint(), host));
    QCOMPARE(drawView()->geometry(), screen);
    QCOMPARE(drawView()->contentViewWidth(), std::min(414, screen.width()));
    const QRect close = popup()->findChild<QVCloseButton *>()->geometry();
    QCOMPARE(close.size(), QSize(32, 32));
    QCOMPARE(close.topRight(), screen.topRight());
    const QRect support = popup()->findChild<QVSupportLabel *>()->geometry();
    QCOMPARE(screen.bottomRight() - support.bottomRight(), QPoint(10, 5));
    QVERIFY(support.width() > 20);

    advance(300ms);
    const QImage seen = popup()->grab().toImage();
    QCOMPARE(seen.pixelColor(screen.center().x(), screen.top() + 2).value() > 240, true);
    QCOMPARE(seen.pixelColor(0, 40).value() > 200, screen.left() == 0);
}

void TestPopup::followsTheHostsSize()
{
    host().resize(1000, 600);
    open();
    QCOMPARE(drawView()->width(), 414);
    host().resize(400, 500);
    QCOMPARE(popup()->size(), QSize(400, 500));
    QCOMPARE(drawView()->geometry(), QRect(0, 0, 400, 500));
    QCOMPARE(drawView()->contentViewWidth(), 400.0);
    host().showMinimized();
    host().showNormal();
    QVERIFY(popup());
    QCOMPARE(m_opener->heard, QStringList());
}

void TestPopup::takesTheRoomThatTheHostChose_data()
{
    QTest::addColumn<QVPopupPresentation>("presentation");
    QTest::addColumn<bool>("hostless");
    QTest::addColumn<bool>("isWindow");
    QTest::addColumn<bool>("isCard");
    QTest::newRow("automatic") << QVPopupPresentation::Automatic << false << false << true;
    QTest::newRow("window") << QVPopupPresentation::WholeWindow << false << false << false;
    QTest::newRow("screen") << QVPopupPresentation::WholeScreen << false << true << false;
    QTest::newRow("no host") << QVPopupPresentation::Automatic << true << true << true;
    QTest::newRow("no host, screen") << QVPopupPresentation::WholeScreen << true << true << false;
}

void TestPopup::takesTheRoomThatTheHostChose()
{
    QFETCH(QVPopupPresentation, presentation);
    QFETCH(bool, hostless);
    QFETCH(bool, isWindow);
    QFETCH(bool, isCard);
    if (hostless)
        destroyHost();
    m_hostless = hostless;
    QVSDKManager::setPopupPresentation(presentation);
    open();
    QCOMPARE(popup()->isWindow(), isWindow);
    QCOMPARE(popup()->size(), isWindow ? QGuiApplication::primaryScreen()->size() : host().size());
    QCOMPARE(drawView()->width(), isCard ? 414 : popup()->width());
    popup()->close();
    QCOMPARE(m_opener->heard, words("close"));
}

void TestPopup::staysAboveTheHostsWidgets()
{
    QWidget early(&host());
    early.show();
    open();
    const QWidget *const window = popup();
    early.raise();
    QCOMPARE(host().children().constLast(), window);
    QWidget late(&host());
    late.setGeometry(host().rect());
    late.show();
    QCOMPARE(host().children().constLast(), window);
    late.raise();
    QCOMPARE(host().children().constLast(), window);
    QVERIFY(window->isAncestorOf(host().childAt(host().rect().center())));
    // Of two popups the later one stays on top, and neither fights for it.
    Opener other;
    const auto second =
        QVViewController::showQvWithVerifyStyle(QVVerifyStylePopup, m_config, m_click, &other, &host());
    late.raise();
    QVERIFY(host().children().constLast() != window);
    QVERIFY(host().children().constLast() != &late);
    second->dismissWindow();
}

void TestPopup::endsWithTheHostsWindow_data()
{
    QTest::addColumn<QString>("end");
    QTest::addColumn<bool>("hidden");
    QTest::addColumn<QStringList>("heard");
    for (const char *end : {"close", "destroy"}) {
        QTest::addRow("%s, shown", end) << QString::fromLatin1(end) << false << words("close");
        QTest::addRow("%s, hidden", end) << QString::fromLatin1(end) << true << QStringList();
    }
}

void TestPopup::endsWithTheHostsWindow()
{
    QFETCH(QString, end);
    QFETCH(bool, hidden);
    open();
    QVERIFY(waitForPicture());
    if (hidden)
        m_controller.lock()->hiddenWindow();
    forgetAsked();
    if (end == QLatin1String("close"))
        host().close();
    else
        destroyHost();
    // Never out of the host's own destructor or close handler.
    QCOMPARE(m_opener->heard, QStringList());
    pass(200s);
    QTEST(m_opener->heard, "heard");
    QVERIFY(m_controller.expired());
    QCOMPARE(popupCount(), 0);
    QCOMPARE(asked(), QStringList());
}

void TestPopup::leavesASplitterAlone()
{
    auto splitter = std::make_unique<QSplitter>();
    splitter->addWidget(new QWidget);
    splitter->resize(600, 500);
    QSplitter *const host = splitter.get();
    replaceHost(std::move(splitter));
    open();
    QCOMPARE(host->count(), 1);
    QCOMPARE(popup()->geometry(), host->rect());
}

QV_TEST(TestPopup)
#include "TestPopup.moc"
