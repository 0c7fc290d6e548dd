#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

/// A login that shows no captcha unless the service asks for a drawn line. It is a delegate of the manager.
/// Only a signal tells that the user has closed the popup.
class LoginForm : public QWidget, public QVInvisibleDelegate
{
public:
    LoginForm()
    {
        auto *const form = new QFormLayout(this);
        m_password.setEchoMode(QLineEdit::Password);
        form->addRow(QStringLiteral("&User"), &m_user);
        form->addRow(QStringLiteral("&Password"), &m_password);
        form->addRow(&m_message);
        form->addRow(&m_logIn);

        m_verification.setDelegate(this);
        QObject::connect(&m_verification, &QVInvisibleManager::closed, this, [this] { finish({}); });
        QObject::connect(&m_logIn, &QPushButton::clicked, this, [this] {
            m_logIn.setEnabled(false);
            m_verification.startInsivible();
        });
    }

    void invisibleVerifyPassedWithToken(const QString &token) override
    {
        qInfo() << "send this to your server:" << m_user.text() << token;
        // The user is logged in only after the server has checked the token with the service.
        finish(QStringLiteral("Checking with the server…"));
    }

    void invisibleVerifyFailedWithError(const QVError &error) override
    {
        qWarning() << error << "- is quarvo-sandbox --port 8300 running?";
        finish(error.domain());
    }

private:
    void finish(const QString &message)
    {
        m_message.setText(message);
        m_logIn.setEnabled(true);
    }

    QLineEdit m_user;
    QLineEdit m_password;
    QLabel m_message;
    QPushButton m_logIn{QStringLiteral("Log in")};
    QVInvisibleManager m_verification;
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    // The local service, started by: quarvo-sandbox --port 8300
    QVSDKManager::setServiceAddresses(QVServiceAddresses::at(QStringLiteral("http://127.0.0.1:8300")));
    QVSDKManager::setQuarvoSDKVid(QStringLiteral("test-draw"), QStringLiteral("login"));
    LoginForm form;
    form.resize(420, 360);
    form.show();
    return QApplication::exec();
}
