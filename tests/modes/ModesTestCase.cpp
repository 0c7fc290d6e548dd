#include "modes/ModesTestCase.h"

#include "draw/QVRenderDrawView.h"
#include "popup/QVCloseButton.h"
#include "popup/QVWindow.h"
#include "settings/QVSDKManager.h"
#include "support/QVPointerInput.h"
#include "support/QVWait.h"

#include <QApplication>

using namespace std::chrono_literals;

QStringList ModesTestCase::words(const char *text)
{
    return QString::fromLatin1(text).split(q(", "), Qt::SkipEmptyParts);
}

void ModesTestCase::prepare()
{
    m_service = std::make_unique<DrawService>();
    m_service->extend(click, {{q("token"), q("click-token")}});
    m_forgotten = 0;
    m_outcomes = std::make_unique<Outcomes>();
    QVSDKManager::setPreferredLanguage(q("en"));
    auto host = std::make_unique<QWidget>();
    host->resize(700, 600);
    replaceHost(std::move(host));
}

void ModesTestCase::finish()
{
    destroy(false);
    destroy(true);
    m_embed.reset();
    m_outcomes.reset();
    m_host.reset();
    settle();
    m_service.reset();
}

void ModesTestCase::answerCode(const QString &what, const QString &code)
{
    m_service->extend(what, {{q("code"), code}});
}

void ModesTestCase::answerForStatus(int status)
{
    if (status == 2)
        delay(outageSwitch, std::chrono::hours(1));
    if (status == 3)
        m_service->answer(outageSwitch, {{q("active"), true}});
    if (status == 4)
        passByClick();
    if (status == 5)
        answerCode(config, q("0101"));
}

void ModesTestCase::settle() const
{
    const auto isQuiet = [this] {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return m_service->isQuiet();
    };
    QVERIFY(waitFor(isQuiet));
}

void ModesTestCase::pass(std::chrono::milliseconds duration) const
{
    const auto stretch = std::max(50ms, duration / 10);
    for (auto left = duration; left > 0ms; left -= stretch) {
        settle();
        advance(std::min(left, stretch));
    }
    settle();
}

QVClickManager &ModesTestCase::clickManager()
{
    if (!m_click) {
        m_click = std::make_unique<QVClickManager>();
        m_outcomes->watch(m_click.get());
        m_click->button()->setParent(m_host.get());
        m_click->button()->setGeometry(100, 100, 300, 44);
        m_click->button()->show();
    }
    return *m_click;
}

QVInvisibleManager &ModesTestCase::invisibleManager()
{
    if (!m_invisible) {
        m_invisible = std::make_unique<QVInvisibleManager>();
        m_invisible->setAnimation(false);
        m_outcomes->watch(m_invisible.get());
    }
    return *m_invisible;
}

QVEmbedManager &ModesTestCase::embedManager()
{
    if (!m_embed) {
        m_embed = std::make_unique<QVEmbedManager>();
        m_outcomes->watch(m_embed.get());
        m_embed->embedView()->setParent(m_host.get());
        m_embed->embedView()->setGeometry(0, 0, 414, 300);
        m_embed->embedView()->show();
        advance(100ms);
    }
    return *m_embed;
}

void ModesTestCase::start(QVVerifyStyle style)
{
    if (style != QVVerifyStyleEmbed)
        start(style == QVVerifyStyleInvisible);
    else if (m_embed)
        m_embed->reset();
    else
        (void)embedManager();
}

void ModesTestCase::start(bool isInvisible)
{
    if (isInvisible)
        invisibleManager().startInsivible();
    else
        clickManager().button()->click();
}

void ModesTestCase::destroy(bool isInvisible)
{
    if (isInvisible)
        m_invisible.reset();
    else if (m_click)
        delete m_click->button();
    if (!isInvisible)
        m_click.reset();
}

void ModesTestCase::replaceHost(std::unique_ptr<QWidget> host)
{
    m_host = std::move(host);
    showActive(*m_host);
}

void ModesTestCase::showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    QVERIFY(qv_becomesActive(window));
}

QVWindow *ModesTestCase::popup()
{
    for (QWidget *widget : QApplication::allWidgets()) {
        auto *const window = qobject_cast<QVWindow *>(widget);
        if (window && window->isVisible())
            return window;
    }
    return nullptr;
}

qsizetype ModesTestCase::popupCount()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return std::ranges::count_if(QApplication::allWidgets(),
                                 [](QWidget *widget) { return qobject_cast<QVWindow *>(widget); });
}

QVRenderDrawView *ModesTestCase::drawView()
{
    if (QVWindow *const window = popup())
        return window->findChild<QVRenderDrawView *>();
    const auto widgets = QApplication::allWidgets();
    const auto found = std::ranges::find_if(widgets, [](const QWidget *widget) {
        return widget->isVisible() && qobject_cast<const QVRenderDrawView *>(widget);
    });
    return found == widgets.end() ? nullptr : static_cast<QVRenderDrawView *>(*found);
}

QWidget *ModesTestCase::part(const char *name)
{
    return drawView() ? drawView()->findChild<QWidget *>(QLatin1String(name)) : nullptr;
}

void ModesTestCase::clickPart(const char *name) const
{
    // What slides or fades in has come to rest.
    advance(500ms);
    QVPointerInput::click(*part(name), part(name)->rect().center());
}

bool ModesTestCase::waitForPicture()
{
    return waitFor([] { return drawView() && drawView()->canInput().value_or(false); });
}

void ModesTestCase::strokeOn(QWidget &view) const
{
    const auto points = QVPointerInput::wave(view.rect().center() - QPoint(60, 0), 14, 9);
    QVPointerInput::strokeWithMouse(view, points, [this] { advance(16ms); });
}

void ModesTestCase::stroke() const
{
    strokeOn(*drawView());
}

void ModesTestCase::strokeAndVerify() const
{
    stroke();
    QVERIFY(waitFor([this] { return m_service->count(verify) > 0; }));
    settle();
}

void ModesTestCase::pressClose()
{
    auto *const button = popup()->findChild<QVCloseButton *>();
    QVPointerInput::click(*button, button->rect().center());
}
