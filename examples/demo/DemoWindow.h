#pragma once

#include "demo/DemoOptions.h"
#include "demo/DemoTexts.h"

#include <Quarvo/Quarvo.h>

#include <QWidget>

class EventLog;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QTabBar;

/// A login form. The demo has no server that would check the token.
class DemoWindow : public QWidget
{
    Q_OBJECT

public:
    DemoWindow(const DemoOptions &options, EventLog &log);

    [[nodiscard]] DemoMode mode() const { return m_mode; }
    [[nodiscard]] QWidget *clickButton();
    void startInvisible();
    void resetVerification();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *makeForm();
    QWidget *makeFields();
    QWidget *makePages();
    QWidget *makeEmbedPage();
    QWidget *makeClickPage();
    QWidget *makeInvisiblePage();
    QWidget *makeSide();
    void connectManagers();
    void showMode(DemoMode mode);
    void orderFocus(const QWidget *page);
    void setLanguage(const QString &tag);
    void translate();
    void pass(const QString &token);
    void startAgain();
    void fitSide();

    EventLog &m_log;
    DemoMode m_mode;
    QString m_language;
    int m_formWidth;

    QVEmbedManager m_embed;
    QVClickManager m_click;
    QVInvisibleManager m_invisible;

    QBoxLayout *m_columns = nullptr;
    QWidget *m_side = nullptr;
    QTabBar *m_tabs = nullptr;
    QStackedWidget *m_pages = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_subtitle = nullptr;
    QLineEdit *m_name = nullptr;
    QLineEdit *m_password = nullptr;
    QLabel *m_result = nullptr;
    QPushButton *m_signIn = nullptr;
    QPushButton *m_again = nullptr;
    QLabel *m_languageLabel = nullptr;
    QComboBox *m_languages = nullptr;
    QCheckBox *m_outage = nullptr;
    QLabel *m_eventsLabel = nullptr;
    QListWidget *m_events = nullptr;
};
