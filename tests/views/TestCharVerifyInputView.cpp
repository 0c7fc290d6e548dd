#include "settings/QVSDKManager.h"
#include "support/QVPointerInput.h"
#include "support/QVTestCase.h"
#include "support/QVWait.h"
#include "views/QVActivitySpinner.h"
#include "views/QVCharVerifyInputView.h"
#include "views/QVCharVerifyInputViewDoneButton.h"
#include "views/QVCharVerifyTextField.h"

#include <QClipboard>

namespace {

class AnswerOwner : public QVCharVerifyInputViewDelegate
{
public:
    bool charVerifyInputViewDidClickedDoneButtonWithCharString(QVCharVerifyInputView *,
                                                               const QString &charString) override
    {
        answers.append(charString);
        return true;
    }
    std::optional<bool> canInput() override { return mayType; }

    QStringList answers;
    std::optional<bool> mayType;
};

} // namespace

class TestCharVerifyInputView : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sendsTheTextAsTyped()
    {
        for (const QString &text : {q("  a b "), QString(40000, u'x'), q("验证码")}) {
            clickField();
            QVERIFY(field()->isEditing());
            QGuiApplication::clipboard()->setText(text);
            QTest::keySequence(m_window->windowHandle(), QKeySequence::Paste);
            QTest::keyClick(m_window->windowHandle(), Qt::Key_Return);
            QVERIFY(!field()->isEditing() && m_owner->answers.isEmpty());
            clickDone();
            QCOMPARE(std::exchange(m_owner->answers, {}), QStringList{text});
            QVERIFY(field()->text().isEmpty());
        }
    }

    void asksBeforeTyping()
    {
        const QVCases<std::optional<bool>, int, bool> cases{
            {std::nullopt, 0, true}, {true, 0, true}, {false, 0, false}, {true, 1, false}};
        for (const auto &[answer, status, begins] : cases) {
            m_owner->mayType = answer;
            done()->setButtonStauts(status);
            m_other->setFocus();
            clickField();
            QCOMPARE(field()->isEditing(), begins);
            QVERIFY2(begins || m_other->hasFocus(), "a refused click leaves the focus where it was");
            m_other->setFocus();
            QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
            QCOMPARE(field()->isEditing(), begins);
        }
    }

    void loadingIgnoresTaps()
    {
        done()->setFocus(Qt::TabFocusReason);
        for (const int status : {1, 0}) {
            done()->setButtonStauts(status);
            field()->setText(q("abc"));
            clickDone();
            field()->setText(q("abc"));
            QTest::keyClick(done(), Qt::Key_Space);
            QCOMPARE(m_owner->answers.size(), status == 1 ? 0 : 2);
        }
        done()->setButtonStauts(2);
        QVERIFY(!done()->indicatorView()->isVisible());
        QCOMPARE(time().pendingCount(), 0);
    }

private:
    void prepare() override
    {
        QVSDKManager::setPreferredLanguage(q("en"));
        m_owner = std::make_unique<AnswerOwner>();
        m_window = std::make_unique<QWidget>();
        m_window->resize(400, 100);
        m_other = new QLineEdit(m_window.get());
        m_other->setGeometry(0, 60, 100, 20);
        m_view = new QVCharVerifyInputView(m_window.get());
        m_view->setGeometry(0, 0, 400, 40);
        m_view->setDelegate(m_owner.get());
        m_window->show();
        QVERIFY(qv_becomesActive(*m_window));
    }

    void finish() override
    {
        m_window.reset();
        m_owner.reset();
    }

    [[nodiscard]] QVCharVerifyTextField *field() const { return m_view->inputTF(); }
    [[nodiscard]] QVCharVerifyInputViewDoneButton *done() const { return m_view->doneButton(); }

    void clickField() { QVPointerInput::click(*m_view, field()->geometry().center()); }
    void clickDone() { QVPointerInput::click(*m_view, done()->geometry().center()); }

    std::unique_ptr<AnswerOwner> m_owner;
    std::unique_ptr<QWidget> m_window;
    QLineEdit *m_other = nullptr;
    QVCharVerifyInputView *m_view = nullptr;
};

QV_TEST(TestCharVerifyInputView)
#include "TestCharVerifyInputView.moc"
