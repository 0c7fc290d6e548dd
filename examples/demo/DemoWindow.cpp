#include "demo/DemoWindow.h"

#include "demo/EventLog.h"
#include "demo/WindowSize.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>

namespace {

// From this width on the side column is beside the form, in narrower windows below it.
constexpr int widthForTwoColumns = 760;
constexpr int sideWidth = 300;
constexpr int clickButtonHeight = 44;
constexpr int mostEvents = 200;

constexpr std::pair<const char16_t *, const char *> languages[] = {
    {u"English", "en"},
    {u"简体中文", "zh-Hans"},
    {u"繁體中文", "zh-Hant"},
};

QLabel *makeLabel(const QString &objectName, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QVBoxLayout *pageLayout(QWidget *page)
{
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

/// Keeps the panel at the ratio that the component asks for, as wide as the form allows.
class PanelFrame : public QWidget
{
public:
    PanelFrame(QWidget *panel, int widest, QWidget *parent)
        : QWidget(parent)
        , m_panel(panel)
        , m_widest(widest)
    {
        panel->setParent(this);
        panel->show();
    }

    [[nodiscard]] QSize sizeHint() const override { return {m_widest, heightFor(m_widest)}; }

protected:
    void resizeEvent(QResizeEvent *) override
    {
        setFixedHeight(heightFor(width()));
        m_panel->setGeometry(rect());
    }

private:
    static int heightFor(int width)
    {
        return qRound(width / QVEmbedManager::embedViewWidthHeightPercentage());
    }

    QWidget *const m_panel;
    const int m_widest;
};

/// A dialog that is smaller shows only the verification, without the fields.
constexpr int leastWithFields = 480;

} // namespace

DemoWindow::DemoWindow(const DemoOptions &options, EventLog &log)
    : m_log(log)
    , m_mode(options.mode)
    , m_language(options.language)
    , m_formWidth(options.formWidth)
{
    setWindowTitle(QStringLiteral("Quarvo demo"));
    setStyleSheet(demoStyleSheet(options.look));
    if (options.look == DemoLook::RightToLeft)
        setLayoutDirection(Qt::RightToLeft);
    m_invisible.setAnimation(options.animation);

    // The width of the form follows that of the window, and must not limit it.
    setMinimumWidth(smallestSide);
    m_columns = new QBoxLayout(QBoxLayout::LeftToRight, this);
    m_columns->addStretch(1);
    m_columns->addWidget(makeForm(), 0, Qt::AlignCenter);
    m_columns->addWidget(makeSide());
    m_columns->addStretch(1);

    connectManagers();
    m_outage->setChecked(options.outageOpen);
    connect(m_outage, &QCheckBox::toggled, this, [](bool on) { QVSDKManager::setOutageOpen(on); });
    connect(&m_log, &EventLog::added, this, [this](const QString &line) {
        m_events->addItem(line);
        if (m_events->count() > mostEvents)
            delete m_events->takeItem(0);
        m_events->scrollToBottom();
    });
    translate();
    showMode(m_mode);
    if (options.size.height() < leastWithFields) {
        for (QWidget *const part :
             std::initializer_list<QWidget *>{m_side, m_tabs, m_title, m_subtitle, m_name, m_password})
            part->hide();
    }
    resize(options.size);
}

QWidget *DemoWindow::makeForm()
{
    auto *form = new QWidget(this);
    form->setObjectName(QStringLiteral("form"));
    form->setAttribute(Qt::WA_StyledBackground);
    auto *layout = new QVBoxLayout(form);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);

    m_tabs = new QTabBar(form);
    m_tabs->setExpanding(true);
    m_tabs->setDrawBase(false);
    for (int count = 0; count < 3; ++count)
        m_tabs->addTab(QString());
    m_tabs->setCurrentIndex(static_cast<int>(m_mode));
    connect(m_tabs, &QTabBar::currentChanged, this,
            [this](int index) { showMode(static_cast<DemoMode>(index)); });

    layout->addWidget(m_tabs);
    layout->addWidget(makeFields());
    return form;
}

QWidget *DemoWindow::makeFields()
{
    auto *fields = new QWidget(this);
    auto *layout = new QVBoxLayout(fields);
    layout->setSpacing(12);
    m_title = makeLabel(QStringLiteral("title"), fields);
    m_subtitle = makeLabel(QStringLiteral("subtitle"), fields);
    m_name = new QLineEdit(fields);
    m_password = new QLineEdit(fields);
    m_password->setEchoMode(QLineEdit::Password);
    m_result = makeLabel(QStringLiteral("result"), fields);
    // The form must not jump when the result is shown.
    QSizePolicy reserved = m_result->sizePolicy();
    reserved.setRetainSizeWhenHidden(true);
    m_result->setSizePolicy(reserved);
    m_result->hide();
    m_again = new QPushButton(fields);
    m_again->setObjectName(QStringLiteral("again"));
    m_again->setCursor(Qt::PointingHandCursor);
    connect(m_again, &QPushButton::clicked, this, &DemoWindow::startAgain);

    layout->addWidget(m_title);
    layout->addWidget(m_subtitle);
    layout->addWidget(m_name);
    layout->addWidget(m_password);
    layout->addWidget(makePages());
    layout->addWidget(m_result);
    layout->addWidget(m_again, 0, Qt::AlignHCenter);
    QWidget *before = m_password;
    for (QWidget *next : {static_cast<QWidget *>(m_click.clickButton()), static_cast<QWidget *>(m_signIn),
                          static_cast<QWidget *>(m_again)}) {
        setTabOrder(before, next);
        before = next;
    }
    return fields;
}

QWidget *DemoWindow::makePages()
{
    m_pages = new QStackedWidget(this);
    m_pages->addWidget(makeEmbedPage());
    m_pages->addWidget(makeClickPage());
    m_pages->addWidget(makeInvisiblePage());
    return m_pages;
}

QWidget *DemoWindow::makeEmbedPage()
{
    auto *page = new QWidget(this);
    // The panel is added when the page is first shown, since it sends its first request once it is in a
    // layout.
    pageLayout(page);
    return page;
}

QWidget *DemoWindow::makeClickPage()
{
    auto *page = new QWidget(this);
    auto *layout = pageLayout(page);
    QWidget *const button = m_click.clickButton();
    button->setFixedHeight(clickButtonHeight);
    layout->addWidget(button);
    layout->addStretch(1);
    return page;
}

QWidget *DemoWindow::makeInvisiblePage()
{
    auto *page = new QWidget(this);
    auto *layout = pageLayout(page);
    m_signIn = new QPushButton(page);
    m_signIn->setObjectName(QStringLiteral("signIn"));
    connect(m_signIn, &QPushButton::clicked, this, &DemoWindow::startInvisible);
    layout->addWidget(m_signIn);
    layout->addStretch(1);
    return page;
}

QWidget *DemoWindow::makeSide()
{
    m_side = new QWidget(this);
    m_side->setObjectName(QStringLiteral("side"));
    m_side->setAttribute(Qt::WA_StyledBackground);
    auto *layout = new QVBoxLayout(m_side);
    m_languageLabel = makeLabel(QStringLiteral("languageLabel"), m_side);
    m_languages = new QComboBox(m_side);
    for (const auto &[name, tag] : languages)
        m_languages->addItem(QString::fromUtf16(name), QString::fromLatin1(tag));
    m_languages->setCurrentIndex(qMax(0, m_languages->findData(m_language)));
    connect(m_languages, &QComboBox::currentIndexChanged, this,
            [this] { setLanguage(m_languages->currentData().toString()); });
    m_outage = new QCheckBox(m_side);
    m_eventsLabel = makeLabel(QStringLiteral("eventsLabel"), m_side);
    m_events = new QListWidget(m_side);
    m_events->setFocusPolicy(Qt::NoFocus);

    layout->addWidget(m_languageLabel);
    layout->addWidget(m_languages);
    layout->addWidget(m_outage);
    layout->addWidget(m_eventsLabel);
    layout->addWidget(m_events, 1);
    return m_side;
}

void DemoWindow::connectManagers()
{
    const auto tellFailure = [this](const QVError &error) {
        m_log.add(QStringLiteral("error"), QStringLiteral("%1 %2").arg(error.code()).arg(error.domain()));
    };
    const auto tellClosed = [this] {
        m_log.add(QStringLiteral("closed"));
    };
    connect(&m_embed, &QVEmbedManager::passed, this, &DemoWindow::pass);
    connect(&m_click, &QVClickManager::passed, this, &DemoWindow::pass);
    connect(&m_click, &QVClickManager::failed, this, tellFailure);
    connect(&m_click, &QVClickManager::closed, this, tellClosed);
    connect(&m_invisible, &QVInvisibleManager::passed, this, &DemoWindow::pass);
    connect(&m_invisible, &QVInvisibleManager::failed, this, tellFailure);
    connect(&m_invisible, &QVInvisibleManager::closed, this, tellClosed);
}

QWidget *DemoWindow::clickButton()
{
    return m_click.clickButton();
}

void DemoWindow::startInvisible()
{
    m_invisible.startInsivible();
}

void DemoWindow::resetVerification()
{
    switch (m_mode) {
    case DemoMode::Embed:
        m_embed.reset();
        break;
    case DemoMode::Click:
        m_click.reset();
        break;
    case DemoMode::Invisible:
        m_invisible.reset();
        break;
    }
}

void DemoWindow::showMode(DemoMode mode)
{
    m_mode = mode;
    m_tabs->setCurrentIndex(static_cast<int>(mode));
    m_pages->setCurrentIndex(static_cast<int>(mode));
    // A stack is as high as its highest page. Hidden pages must not stretch the form.
    for (int index = 0; index < m_pages->count(); ++index) {
        const bool isCurrent = index == m_pages->currentIndex();
        m_pages->widget(index)->setSizePolicy(QSizePolicy::Preferred,
                                              isCurrent ? QSizePolicy::Preferred : QSizePolicy::Ignored);
    }
    QWidget *const embedPage = m_pages->widget(static_cast<int>(DemoMode::Embed));
    if (mode == DemoMode::Embed && embedPage->layout()->isEmpty()) {
        embedPage->layout()->addWidget(new PanelFrame(m_embed.embedView(), m_formWidth, embedPage));
        orderFocus(embedPage);
    }
    m_pages->adjustSize();
}

// Moves the panel in the tab order: it was created last and would be last.
void DemoWindow::orderFocus(const QWidget *page)
{
    QWidget *before = m_password;
    for (QWidget *part : page->findChildren<QWidget *>()) {
        if (part->focusPolicy() != Qt::NoFocus)
            before = part;
    }
    for (QWidget *next : {static_cast<QWidget *>(m_again), static_cast<QWidget *>(m_languages),
                          static_cast<QWidget *>(m_outage), static_cast<QWidget *>(m_events)}) {
        setTabOrder(before, next);
        before = next;
    }
}

void DemoWindow::setLanguage(const QString &tag)
{
    m_language = tag;
    QVSDKManager::setPreferredLanguage(tag);
    translate();
    resetVerification();
}

void DemoWindow::translate()
{
    const auto text = [this](DemoText which) {
        return demoText(which, m_language);
    };
    m_title->setText(text(DemoText::Title));
    m_subtitle->setText(text(DemoText::Subtitle));
    for (const auto &[field, name] : {std::pair(m_name, DemoText::Name), {m_password, DemoText::Password}}) {
        field->setPlaceholderText(text(name));
        field->setAccessibleName(text(name));
    }
    m_languages->setAccessibleName(text(DemoText::Language));
    m_events->setAccessibleName(text(DemoText::Events));
    m_signIn->setText(text(DemoText::SignIn));
    m_result->setText(text(DemoText::Verified));
    m_again->setText(text(DemoText::Again));
    m_tabs->setTabText(static_cast<int>(DemoMode::Embed), text(DemoText::Embed));
    m_tabs->setTabText(static_cast<int>(DemoMode::Click), text(DemoText::Click));
    m_tabs->setTabText(static_cast<int>(DemoMode::Invisible), text(DemoText::Invisible));
    m_languageLabel->setText(text(DemoText::Language));
    m_outage->setText(text(DemoText::ForceOutage));
    m_eventsLabel->setText(text(DemoText::Events));
}

void DemoWindow::pass(const QString &token)
{
    m_log.add(QStringLiteral("token"), token);
    m_result->show();
}

void DemoWindow::startAgain()
{
    m_result->hide();
    resetVerification();
}

void DemoWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitSide();
}

void DemoWindow::fitSide()
{
    const bool isWide = width() >= widthForTwoColumns;
    m_columns->setDirection(isWide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    const int margin = isWide ? 24 : 8;
    m_columns->setContentsMargins(margin, margin, margin, margin);
    m_columns->setSpacing(isWide ? 20 : 8);
    const int padding = isWide ? 24 : 10;
    m_title->parentWidget()->layout()->setContentsMargins(padding, 4, padding, padding);
    m_pages->parentWidget()->parentWidget()->setFixedWidth(
        qMin(m_formWidth + 2 * padding + 2, width() - 2 * margin));
    m_side->setFixedWidth(isWide ? sideWidth : width() - 2 * margin);
    m_side->setSizePolicy(QSizePolicy::Fixed, isWide ? QSizePolicy::Preferred : QSizePolicy::Maximum);
    // A narrow window has no room for the events. They are printed anyway.
    m_eventsLabel->setVisible(isWide);
    m_events->setVisible(isWide);
}
