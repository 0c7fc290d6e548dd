#include "settings/QVSDKManager.h"
#include "support/QVPixels.h"
#include "support/QVPointerInput.h"
#include "support/QVTestCase.h"
#include "support/QVWait.h"
#include "views/QVCharVerifyInputView.h"
#include "views/QVCharVerifyInputViewDoneButton.h"
#include "views/QVCharVerifyTextField.h"
#include "views/QVRenderDrawImageView.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QSemaphore>
#include <QSignalSpy>
#include <QThreadPool>
#include <QTimer>

using namespace std::chrono_literals;

namespace {

/// The view's owner on a window, with a picture above and an answer strip below.
class Owner final : public QWidget, public QVCharVerifyInputViewDelegate
{
public:
    Owner()
    {
        resize(500, 300);
        picture->setGeometry(0, 0, 400, 230);
        strip->setGeometry(0, 240, 400, 40);
        strip->setDelegate(this);
        other->setGeometry(420, 0, 60, 20);
    }

    bool canInput() override { return mayType; }
    void charVerifyInputViewDidClickedDoneButtonWithCharString(QVCharVerifyInputView *,
                                                               const QString &charString) override
    {
        answers.append(charString);
    }
    // As a dialog's default button, which Return would press.
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Return)
            answers.append(q("pressed"));
    }

    QVRenderDrawImageView *const picture = new QVRenderDrawImageView(this);
    QVCharVerifyInputView *const strip = new QVCharVerifyInputView(this);
    QLineEdit *const other = new QLineEdit(this);
    bool mayType = true;
    QStringList answers;
};

} // namespace

/// What views make of a user's input, and how long they take.
class TestViews : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aTouchIsAClick_data()
    {
        const auto row = addColumns<QString, int>({"steps", "clicks"});
        row("two taps", "press lift press lift", 2);
        row("left and back", "press out in lift", 1);
        row("left", "press out lift-out", 0);
        row("hidden", "press hide show in lift", 0);
        row("hidden, then a tap", "press hide show lift press lift", 1);
        row("disabled", "press disable in lift", 0);
        row("disabled for a while", "press disable enable in lift", 1);
    }

    void aTouchIsAClick()
    {
        QFETCH(QString, steps);
        QVCharVerifyInputViewDoneButton button(m_owner.get());
        button.setGeometry(20, 20, 100, 40);
        button.show();
        const QSignalSpy clicked(&button, &QAbstractButton::clicked);
        for (const QString &step : steps.split(u' ')) {
            auto touch = QTest::touchEvent(m_owner.get(), QVPointerInput::touchScreen());
            const QPoint place = step.endsWith(q("out")) ? QPoint(450, 280) : QPoint(50, 30);
            if (step == q("press"))
                touch.press(0, place, m_owner.get());
            else if (step == q("in") || step == q("out"))
                touch.move(0, place, m_owner.get());
            else if (step.startsWith(q("lift")))
                touch.release(0, place, m_owner.get());
            else if (step == q("hide") || step == q("show"))
                button.setVisible(step == q("show"));
            else
                button.setEnabled(step == q("enable"));
            touch.commit();
            QVERIFY(button.isDown() ? step != q("out") : step != q("press"));
        }
        QTEST(int(clicked.size()), "clicks");
        QVERIFY(!button.isDown());
    }

    void typedTextIsReadableWhenTheDesktopTurnsDark()
    {
        QVSDKManager::setAppearance(QVAppearance::System);
        auto *const field = m_owner->strip->findChild<QVCharVerifyTextField *>();
        const auto brightness = [field] {
            return field->palette().color(QPalette::Text).lightness();
        };
        QCOMPARE(brightness(), 0);
        // Qt tells widgets of a palette only while the application's own event loop runs.
        QTimer::singleShot(0ms, this, [&] {
            QApplication::setPalette(Qt::black);
            const bool isReadable = waitFor([&] { return brightness() == 255; });
            QApplication::setPalette({});
            QCoreApplication::exit(isReadable && waitFor([&] { return brightness() == 0; }) ? 0 : 1);
        });
        QCOMPARE(QApplication::exec(), 0);
    }

    void paintsWhileTheHostsThreadsAreBusy()
    {
        constexpr int patience = 5000;
        QThreadPool &pool = *QThreadPool::globalInstance();
        QSemaphore busy;
        for (int i = 0; i < pool.maxThreadCount(); ++i)
            pool.start([&busy] { busy.tryAcquire(1, patience); });
        m_owner->picture->setImage(QImage(1600, 920, QImage::Format_RGB32));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!pixelsOf(*m_owner->picture, 3).isNull());
        QVERIFY(timer.elapsed() < patience - 1000);
        busy.release(pool.maxThreadCount());
        pool.waitForDone();
    }

    void sendsTheTextAsTyped()
    {
        QCOMPARE(field()->inputMethodQuery(Qt::ImEnterKeyType).toInt(), int(Qt::EnterKeyDone));
        for (const QString &text : {q("  a b "), QString(40000, u'x'), q("验证码")}) {
            clickOn(field());
            QGuiApplication::clipboard()->setText(text);
            QTest::keySequence(m_owner->windowHandle(), QKeySequence::Paste);
            QTest::keyClick(m_owner->windowHandle(), Qt::Key_Return);
            QVERIFY(!field()->isEditing() && m_owner->answers.isEmpty());
            clickOn(done());
            QCOMPARE(std::exchange(m_owner->answers, {}), QStringList{text});
            QVERIFY(field()->text().isEmpty());
        }
    }

    void asksBeforeTyping_data()
    {
        const auto row = addColumns<bool, int, bool>({"mayType", "status", "begins"});
        row("may", true, 0, true);
        row("may not", false, 0, false);
        row("busy", true, 1, false);
    }

    void asksBeforeTyping()
    {
        QFETCH(const int, status);
        QFETCH(const bool, begins);
        QFETCH(const bool, mayType);
        m_owner->mayType = mayType;
        done()->setButtonStauts(status);
        m_owner->other->setFocus();
        clickOn(field());
        QCOMPARE(field()->isEditing(), begins);
        QVERIFY2(begins || m_owner->other->hasFocus(), "a refused click leaves the focus where it was");
        field()->setText(q("abc"));
        clickOn(done());
        QTest::keyClick(done(), Qt::Key_Space);
        QCOMPARE(m_owner->answers.size(), status == 1 ? 0 : 1);
    }

private:
    void prepare() override
    {
        QVSDKManager::setPreferredLanguage(q("en"));
        m_owner = std::make_unique<Owner>();
        m_owner->show();
        QVERIFY(qv_becomesActive(*m_owner));
    }

    void finish() override { m_owner.reset(); }

    [[nodiscard]] QVCharVerifyTextField *field() const { return m_owner->strip->inputTF(); }
    [[nodiscard]] QVCharVerifyInputViewDoneButton *done() const { return m_owner->strip->doneButton(); }
    void clickOn(const QWidget *part) const
    {
        QVPointerInput::click(*m_owner->strip, part->geometry().center());
    }

    std::unique_ptr<Owner> m_owner;
};

QV_TEST(TestViews)
#include "TestViews.moc"
