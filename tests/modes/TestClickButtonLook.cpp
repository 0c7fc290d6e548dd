#include "modes/ModesTestCase.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickStatusLabel.h"
#include "settings/QVLocalization.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

using namespace std::chrono_literals;

class TestClickButtonLook : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void colourOfStatus_data();
    void colourOfStatus();
    void placesItsParts();
    void fitsLongTexts_data();
    void fitsLongTexts();
    void hostsStyleSheetDoesNotReachIt();
    void showsFocusThatCameByKeyboard_data();
    void showsFocusThatCameByKeyboard();
    void tellsScreenReaders();

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        m_button = new QVClickButton(&host());
        m_button->setGeometry(100, 100, 300, 44);
        m_button->show();
    }

    [[nodiscard]] QImage painted(QWidget::RenderFlags flags = QWidget::RenderFlags()) const
    {
        QImage image(m_button->size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        m_button->render(&image, {}, {}, flags);
        return image;
    }

    QPointer<QVClickButton> m_button;
};

void TestClickButtonLook::colourOfStatus_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QColor>("colour");
    const QColor blue(65, 141, 251);
    for (int status = 0; status <= 3; ++status)
        QTest::addRow("%d", status) << status << blue;
    QTest::newRow("4") << 4 << QColor(0, 213, 159, 204);
    QTest::newRow("5") << 5 << QColor(238, 60, 64, 204);
}

void TestClickButtonLook::colourOfStatus()
{
    QFETCH(int, status);
    QFETCH(QColor, colour);
    if (status == 1)
        QTest::mousePress(m_button, Qt::LeftButton);
    if (status == 2)
        delay(outageSwitch, 1h);
    if (status == 3)
        openOutage();
    if (status == 4)
        passByClick();
    if (status == 5)
        service().answerBytes(outageSwitch, "?");
    if (status > 1)
        m_button->click();
    QVERIFY(waitFor([&] { return int(m_button->clickStatus()) == status; }));
    for (const QPoint &corner : {QPoint(299, 0), QPoint(60, 43)}) {
        const QColor seen = painted().pixelColor(corner);
        QCOMPARE(seen.alpha(), colour.alpha());
        // Painting multiplies by alpha and back, which may lose one.
        QVERIFY2(std::abs(seen.red() - colour.red()) <= 1 && std::abs(seen.green() - colour.green()) <= 1 &&
                     std::abs(seen.blue() - colour.blue()) <= 1,
                 qPrintable(seen.name()));
    }
}

void TestClickButtonLook::placesItsParts()
{
    const auto *const label = m_button->findChild<QVClickStatusLabel *>();
    QCOMPARE(label->geometry(), QRect(50, 0, 240, 44));
    m_button->resize(200, 60);
    QCOMPARE(label->geometry(), QRect(50, 0, 140, 60));
}

void TestClickButtonLook::fitsLongTexts_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("words");
    QTest::addColumn<bool>("elided");
    QTest::newRow("short") << 44 << 2 << false;
    QTest::newRow("two lines") << 44 << 4 << false;
    QTest::newRow("no room for two lines") << 24 << 4 << true;
    QTest::newRow("more than two lines") << 44 << 40 << true;
    QTest::newRow("nothing") << 44 << 0 << false;
}

void TestClickButtonLook::fitsLongTexts()
{
    QFETCH(int, height);
    QFETCH(int, words);
    QFETCH(bool, elided);
    if (elided)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".*raise.*")));
    auto *const label = m_button->findChild<QVClickStatusLabel *>();
    m_button->resize(300, height);
    const QString text = QStringLiteral("<b>a</b>long ").repeated(words);
    label->setText(text.trimmed());
    QCOMPARE(label->isElided(), elided);
    QHelpEvent event(QEvent::ToolTip, QPoint(60, 10), m_button->mapToGlobal(QPoint(60, 10)));
    QCoreApplication::sendEvent(m_button, &event);
    QCOMPARE(QToolTip::isVisible(), elided);
    QVERIFY(!elided || QToolTip::text().contains(QLatin1String("&lt;b&gt;")));
    QToolTip::hideText();
}

void TestClickButtonLook::hostsStyleSheetDoesNotReachIt()
{
    const QImage before = painted(QWidget::DrawChildren);
    host().setStyleSheet(QStringLiteral(
        "* { background: yellow; color: red; font: bold 30px; border: 4px solid green; padding: 9px }"));
    QCOMPARE(m_button->geometry(), QRect(100, 100, 300, 44));
    QCOMPARE(painted(QWidget::DrawChildren), before);
}

void TestClickButtonLook::showsFocusThatCameByKeyboard_data()
{
    QTest::addColumn<Qt::FocusReason>("reason");
    QTest::addColumn<bool>("shown");
    QTest::newRow("tab") << Qt::TabFocusReason << true;
    QTest::newRow("backtab") << Qt::BacktabFocusReason << true;
    QTest::newRow("mouse") << Qt::MouseFocusReason << false;
    QTest::newRow("program") << Qt::OtherFocusReason << false;
}

void TestClickButtonLook::showsFocusThatCameByKeyboard()
{
    QFETCH(Qt::FocusReason, reason);
    QFETCH(bool, shown);
    const QImage before = painted();
    m_button->setFocus(reason);
    QVERIFY(m_button->hasFocus());
    QCOMPARE(painted() != before, shown);
    // The popup borrows the focus; what the user sees afterwards is what was seen before.
    m_button->clearFocus();
    m_button->setFocus(Qt::PopupFocusReason);
    QCOMPARE(painted() != before, shown);
}

void TestClickButtonLook::tellsScreenReaders()
{
    const QAccessibleInterface *const reader = QAccessible::queryAccessibleInterface(m_button);
    QCOMPARE(reader->role(), QAccessible::PushButton);
    for (const QString &text : {QStringLiteral("touchCaptcha"), QStringLiteral("clickPass")}) {
        QCOMPARE(m_button->statusText(), qv_localizedStringForKey(text));
        QCOMPARE(reader->text(QAccessible::Name), m_button->statusText());
        passByClick();
        m_button->click();
        QVERIFY(waitFor([this] { return m_button->clickStatus() == QVClickStatusPassed; }));
    }
}

QV_TEST(TestClickButtonLook)
#include "TestClickButtonLook.moc"
