#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

/// A sign-up form that contains the picture. It can be sent once the line has been drawn.
class SignUpForm : public QWidget
{
public:
    SignUpForm()
    {
        auto *const form = new QFormLayout(this);
        form->addRow(QStringLiteral("&Name"), &m_name);
        form->addRow(&m_panel);
        form->addRow(&m_send);
        // The size that the panel is designed for.
        m_panel.setMinimumSize(400, 270);
        m_send.setEnabled(false);

        QObject::connect(m_panel.manager(), &QVEmbedManager::passed, this, [this](const QString &token) {
            m_token = token;
            m_send.setEnabled(true);
        });
        // The panel shows the message, and starts again when that is tapped.
        QObject::connect(m_panel.manager(), &QVEmbedManager::failed, this, [](const QVError &error) {
            qWarning() << error << "- is quarvo-sandbox --port 8300 running?";
        });
        QObject::connect(&m_send, &QPushButton::clicked, this, [this] { send(); });
    }

private:
    void send()
    {
        qInfo() << "send this to your server:" << m_name.text() << m_token;
        // A token can be checked once, so the form needs another one to be sent again.
        m_token.clear();
        m_send.setEnabled(false);
        m_panel.manager()->reset();
    }

    QLineEdit m_name;
    QVEmbedPanel m_panel;
    QPushButton m_send{QStringLiteral("Sign up")};
    QString m_token;
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    // The local service, started by: quarvo-sandbox --port 8300
    QVSDKManager::setServiceAddresses(QVServiceAddresses::at(QStringLiteral("http://127.0.0.1:8300")));
    QVSDKManager::setQuarvoSDKVid(QStringLiteral("test-draw"), QStringLiteral("sign-up"));
    SignUpForm form;
    form.show();
    return QApplication::exec();
}
