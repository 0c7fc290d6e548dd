#include "settings/QVSDKManager.h"
#include "support/QVPixels.h"
#include "support/QVTestCase.h"
#include "views/QVActivitySpinner.h"
#include "views/QVBorderedBox.h"
#include "views/QVCharVerifyInputView.h"
#include "views/QVCharVerifyInputViewDoneButton.h"
#include "views/QVCharVerifyTextField.h"

#include <QClipboard>
#include <QDialog>
#include <QPushButton>

using namespace std::chrono_literals;

namespace {

class AnswerOwner : public QVCharVerifyInputViewDelegate
{
public:
    bool charVerifyInputViewDidClickedDoneButtonWithCharString(QVCharVerifyInputView *inputView,
                                                               const QString &charString) override
    {
        answers.append(charString);
        if (isAnswerTheEnd)
            delete inputView;
        return true;
    }
    std::optional<bool> canInput() override { return mayType; }

    QStringList answers;
    std::optional<bool> mayType;
    bool isAnswerTheEnd = false;
};

class OnlyAsked : public QVCharVerifyInputViewDelegate
{
public:
    std::optional<bool> canInput() override { return true; }
};

} // namespace

class TestCharVerifyInputView : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void isLaidOut()
    {
        QCOMPARE(m_view->tfBackView()->geometry(), QRect(10, 5, 230, 30));
        QCOMPARE(field()->geometry(), QRect(15, 5, 220, 30));
        QCOMPARE(done()->geometry(), QRect(320, 5, 80, 30));
        QCOMPARE(done()->indicatorView()->geometry(), QRect(30, 5, 20, 20));
        m_view->resize(100, 40);
        QCOMPARE(m_view->tfBackView()->width(), 0);
        QCOMPARE(done()->geometry(), QRect(20, 5, 80, 30));
    }

    void sendsTheTextAsTyped_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << QStringLiteral("ab12");
        QTest::newRow("spaces") << QStringLiteral("  a b ");
        QTest::newRow("long") << QString(40000, u'x');
        QTest::newRow("Chinese") << QStringLiteral("验证码");
    }

    void sendsTheTextAsTyped()
    {
        QFETCH(QString, text);
        clickField();
        QVERIFY(field()->isEditing());
        QGuiApplication::clipboard()->setText(text);
        QTest::keySequence(m_window->windowHandle(), QKeySequence::Paste);
        clickDone();
        QCOMPARE(m_owner->answers, QStringList{text});
        QVERIFY(field()->text().isEmpty());
        QVERIFY(!field()->isEditing());
    }

    void emptyTextIsNotSent()
    {
        clickField();
        clickDone();
        QVERIFY(m_owner->answers.isEmpty());
        QVERIFY(field()->isEditing());
    }

    void returnOnlyEndsTyping()
    {
        clickField();
        QTest::keyClicks(field(), QStringLiteral("abcd"));
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Return);
        QVERIFY(!field()->isEditing());
        QVERIFY(m_owner->answers.isEmpty());
        QCOMPARE(field()->text(), QStringLiteral("abcd"));
        QCOMPARE(m_defaultPresses, 0);
    }

    void asksBeforeTyping_data()
    {
        QTest::addColumn<std::optional<bool>>("answer");
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("begins");
        QTest::newRow("no answer") << std::optional<bool>() << 0 << true;
        QTest::newRow("allowed") << std::optional<bool>(true) << 0 << true;
        QTest::newRow("refused") << std::optional<bool>(false) << 0 << false;
        QTest::newRow("loading") << std::optional<bool>(true) << 1 << false;
        QTest::newRow("other status") << std::optional<bool>(true) << 2 << true;
    }

    void asksBeforeTyping()
    {
        QFETCH(std::optional<bool>, answer);
        QFETCH(int, status);
        QFETCH(bool, begins);
        m_owner->mayType = answer;
        done()->setButtonStauts(status);
        m_other->setFocus();
        clickField();
        QCOMPARE(field()->isEditing(), begins);
        QVERIFY2(begins || m_other->hasFocus(), "a refused click leaves the focus where it was");
        m_other->setFocus();
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
        QCOMPARE(field()->isEditing(), begins);
        m_other->setFocus();
        field()->setFocus();
        QCOMPARE(field()->isEditing(), begins);
    }

    void activatingTheWindowAsksToo_data()
    {
        QTest::addColumn<bool>("mayType");
        QTest::newRow("allowed") << true;
        QTest::newRow("refused") << false;
    }

    void activatingTheWindowAsksToo()
    {
        QFETCH(bool, mayType);
        m_owner->mayType = mayType;
        QWidget window;
        QVCharVerifyInputView view(&window);
        view.setDelegate(m_owner.get());
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCOMPARE(view.inputTF()->isEditing(), mayType);
    }

    void keepsEditingWhileTheWindowIsAway()
    {
        clickField();
        m_owner->mayType = false;
        QWidget other;
        other.show();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QVERIFY(field()->hasFocus());
    }

    void refusedFieldTakesNoText()
    {
        m_owner->mayType = false;
        clickField();
        QTest::mouseDClick(m_window->windowHandle(), Qt::LeftButton, {}, fieldPlace());
        QTest::keyClick(m_window->windowHandle(), Qt::Key_A);
        QVERIFY(field()->text().isEmpty());
    }

    void withoutAnAnswerOperationTheTextStays()
    {
        OnlyAsked asked;
        m_view->setDelegate(&asked);
        clickField();
        QTest::keyClick(m_window->windowHandle(), Qt::Key_A);
        clickDone();
        QVERIFY(!field()->isEditing());
        QCOMPARE(field()->text(), QStringLiteral("a"));
        m_view->setDelegate(nullptr);
        clickDone();
        QCOMPARE(field()->text(), QStringLiteral("a"));
    }

    void answerMayEndTheView()
    {
        m_owner->isAnswerTheEnd = true;
        field()->setText(QStringLiteral("abc"));
        clickDone();
        QCOMPARE(m_owner->answers.size(), 1);
    }

    void loadingIgnoresTaps_data()
    {
        QTest::addColumn<QString>("by");
        for (const char *by : {"mouse", "touch", "space", "enter"})
            QTest::newRow(by) << QString::fromLatin1(by);
    }

    void loadingIgnoresTaps()
    {
        QFETCH(QString, by);
        field()->setText(QStringLiteral("abc"));
        done()->setButtonStauts(1);
        done()->setFocus(Qt::TabFocusReason);
        tapDone(by);
        QVERIFY(m_owner->answers.isEmpty());
        done()->setButtonStauts(0);
        tapDone(by);
        QCOMPARE(m_owner->answers, QStringList{QStringLiteral("abc")});
    }

    void statusShowsTitleOrSpinner()
    {
        QCOMPARE(done()->buttonStauts(), 0);
        QCOMPARE(done()->title(), QStringLiteral("Done"));
        QVERIFY(!done()->indicatorView()->isVisible());
        done()->setButtonStauts(1);
        QVERIFY(done()->title().isNull());
        QVERIFY(done()->indicatorView()->isVisible());
        const QImage first = pixelsOf(*done());
        advance(250ms);
        QVERIFY2(pixelsOf(*done()) != first, "the spinner turns");
        done()->setButtonStauts(2);
        QCOMPARE(done()->buttonStauts(), 2);
        QVERIFY(done()->title().isNull());
        QVERIFY(!done()->indicatorView()->isVisible());
        QCOMPARE(time().pendingCount(), 0);
        done()->setButtonStauts(0);
        done()->setButtonStauts(-1);
        QCOMPARE(done()->title(), QStringLiteral("Done"));
    }

    void pressedTitleIsFainter()
    {
        const auto darkest = [this] {
            int least = 255;
            const QImage shot = pixelsOf(*m_view).copy(done()->geometry());
            for (int y = 0; y < shot.height(); ++y) {
                for (int x = 0; x < shot.width(); ++x)
                    least = std::min(least, shot.pixelColor(x, y).red());
            }
            return least;
        };
        QVERIFY(qAbs(darkest() - 65) < 12);
        QTest::mousePress(done(), Qt::LeftButton);
        QVERIFY(qAbs(darkest() - (65 * 0.8 + 244 * 0.2)) < 12);
        QTest::mouseRelease(done(), Qt::LeftButton);
    }

    void lineStaysLevel()
    {
        const auto lowestOfK = [this](const QString &text) {
            field()->setText(text);
            const QImage shot = pixelsOf(*m_view).copy(17, 8, 9, 24);
            return differingFrom(shot, Qt::white).bottom();
        };
        const int plain = lowestOfK(QStringLiteral("K"));
        QVERIFY(plain > 0);
        QCOMPARE(lowestOfK(QStringLiteral("K  验证码")), plain);
        QCOMPARE(lowestOfK(QStringLiteral("K")), plain);
    }

    void asksTheKeyboardForPlainInput()
    {
        QVERIFY(field()->inputMethodHints() & Qt::ImhNoPredictiveText);
        QVERIFY(field()->inputMethodHints() & Qt::ImhNoAutoUppercase);
        QCOMPARE(field()->inputMethodQuery(Qt::ImEnterKeyType).toInt(), int(Qt::EnterKeyDone));
    }

    void hasNames()
    {
        QCOMPARE(done()->accessibleName(), QStringLiteral("Done"));
        QCOMPARE(field()->accessibleName(), QStringLiteral("Characters in the picture"));
        QCOMPARE(field()->placeholder(), QStringLiteral("Characters in the picture"));
    }

private:
    void prepare() override
    {
        QVSDKManager::setPreferredLanguage(QStringLiteral("en"));
        m_owner = std::make_unique<AnswerOwner>();
        m_window = std::make_unique<QDialog>();
        m_window->resize(400, 100);
        m_other = new QLineEdit(m_window.get());
        m_other->setGeometry(0, 60, 100, 20);
        m_view = new QVCharVerifyInputView(m_window.get());
        m_view->setGeometry(0, 0, 400, 40);
        m_view->setDelegate(m_owner.get());
        auto *button = new QPushButton(m_window.get());
        button->setGeometry(200, 60, 100, 20);
        button->setDefault(true);
        m_defaultPresses = 0;
        connect(button, &QPushButton::clicked, this, [this] { ++m_defaultPresses; });
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void finish() override
    {
        m_window.reset();
        m_owner.reset();
    }

    [[nodiscard]] QVCharVerifyTextField *field() const { return m_view->inputTF(); }
    [[nodiscard]] QVCharVerifyInputViewDoneButton *done() const { return m_view->doneButton(); }
    [[nodiscard]] QPoint fieldPlace() const { return field()->geometry().center(); }

    void clickField() { QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, fieldPlace()); }
    void clickDone() { tapDone(QStringLiteral("mouse")); }

    void tapDone(const QString &by)
    {
        QWindow *window = m_window->windowHandle();
        const QPoint place = done()->geometry().center();
        if (by == QLatin1String("mouse")) {
            QTest::mouseClick(window, Qt::LeftButton, {}, place);
        } else if (by == QLatin1String("touch")) {
            QTest::touchEvent(window, m_screen.get()).press(1, place);
            QTest::touchEvent(window, m_screen.get()).release(1, place);
        } else {
            QTest::keyClick(window, by == QLatin1String("enter") ? Qt::Key_Return : Qt::Key_Space);
        }
    }

    std::unique_ptr<AnswerOwner> m_owner;
    std::unique_ptr<QDialog> m_window;
    QLineEdit *m_other = nullptr;
    QVCharVerifyInputView *m_view = nullptr;
    int m_defaultPresses = 0;
    const std::unique_ptr<QPointingDevice> m_screen{QTest::createTouchDevice()};
};

QV_TEST(TestCharVerifyInputView)
#include "TestCharVerifyInputView.moc"
