#include "modes/ModesTestCase.h"

#include "draw/QVRenderDrawView.h"
#include "popup/QVCloseButton.h"
#include "popup/QVWindow.h"
#include "support/QVPixels.h"
#include "support/QVPointerInput.h"
#include "support/QVWait.h"
#include "views/QVInvisibleAnimationView.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QApplication>
#include <QLineEdit>

using namespace std::chrono_literals;

namespace {

/// The parts whose object names differ from those that the tables use.
const QMap<QString, QString> partNames{{q("picture"), q("imageView")},
                                       {q("caption"), q("captchaLabel")},
                                       {q("outageBadge"), q("outageLabel")},
                                       {q("errorBar"), q("errorOverlayView")},
                                       {q("characterField"), q("inputTF")}};

} // namespace

void ModesTestCase::prepare()
{
    DrawingTestCase::prepare();
    defineSteps();
    m_outcomes = std::make_unique<Outcomes>();
    connect(qApp, &QApplication::focusChanged, this, [this] {
        if (m_outcomes->heard)
            m_outcomes->heard(q("focus"));
    });
    auto host = std::make_unique<QWidget>();
    host->resize(700, 600);
    replaceHost(std::move(host));
}

void ModesTestCase::finish()
{
    disconnect(qApp, nullptr, this, nullptr);
    m_outcomes->heard = {};
    checkThatAllIsPainted();
    destroyAll();
    m_dialog.reset();
    m_outcomes.reset();
    m_foreignHost.reset();
    m_otherHost.reset();
    m_host.reset();
    DrawingTestCase::finish();
}

void ModesTestCase::checkThatAllIsPainted() const
{
    const auto isPainted = [this] {
        return farthest(onScreen(*m_host), pixelsOf(*m_host)) == 0;
    };
    QVERIFY(!m_host || !m_host->isVisible() || waitFor(isPainted));
}

void ModesTestCase::setMode(const QString &name)
{
    DrawingTestCase::setMode(name);
    m_mode = QVVerifyStyle(words("embed, click, invisible").indexOf(name));
}

void ModesTestCase::checkDelegates(const QStringList &expected)
{
    QCOMPARE(m_outcomes->failuresTold(),
             modeName() == q("invisible") ? expected.filter(q("failed")).size() : 0);
}

void ModesTestCase::defineSteps()
{
    addStep("place", [this](auto) {
        const bool isHere = popup()->window() == m_host.get();
        m_outcomes->add(popup()->isWindow() ? q("alone") : isHere ? q("here") : q("elsewhere"));
        const QWidget *const focused = popup()->window()->focusWidget();
        if (popup()->isActiveWindow() && focused != popup() && !popup()->isAncestorOf(focused))
            m_outcomes->add(q("unfocused"));
    });
    addStep("focused", [this](auto) {
        m_outcomes->add(QLatin1String(m_host->focusWidget()->metaObject()->className()));
    });
    addStep("field", [this](auto) {
        auto *const field = new QLineEdit(m_host.get());
        field->show();
        field->setFocus();
    });
    addStep("dialog", [this](const QString &size) {
        if (size == q("close"))
            return void(m_dialog->close());
        m_dialog = std::make_unique<QWidget>(m_host.get(), Qt::Dialog);
        m_dialog->setWindowModality(Qt::WindowModal);
        m_dialog->resize(size.section(u'x', 0, 0).toInt(), size.section(u'x', 1).toInt());
        m_dialog->show();
    });
    addStep("children", [this](const QString &action) {
        for (QWidget *widget : m_host->findChildren<QWidget *>())
            action == q("hide") ? widget->hide() : widget->setEnabled(false);
    });
}

void ModesTestCase::changeWindow(const QString &what)
{
    const auto window = [this](const auto &act) {
        m_foreignHost ? act(*m_foreignHost) : act(*m_host);
    };
    if (what == q("close"))
        window([](auto &host) { host.close(); });
    else if (what == q("hide") || what == q("show"))
        window([&](auto &host) { host.setVisible(what == q("show")); });
    else if (what == q("disable"))
        m_host->setEnabled(false);
    else if (what == q("destroy"))
        m_foreignHost ? m_foreignHost.reset() : m_host.reset();
    else if (what == q("destroy other"))
        m_otherHost.reset();
    else if (what == q("foreign"))
        showForeignHost();
    else if (what == q("other"))
        changeHost();
    else
        m_host->resize(what.section(u'x', 0, 0).toInt(), what.section(u'x', 1).toInt());
}

void ModesTestCase::showForeignHost()
{
    m_host.reset();
    m_foreignHost = std::make_unique<QWindow>();
    m_foreignHost->setGeometry(40, 30, 640, 600);
    m_foreignHost->show();
}

void ModesTestCase::changeHost()
{
    if (!m_otherHost) {
        m_otherHost = std::make_unique<QWidget>();
        m_otherHost->resize(600, 500);
    }
    std::swap(m_host, m_otherHost);
    showActive(*m_host);
}

QVClickManager &ModesTestCase::clickManager()
{
    if (!m_click) {
        m_click = std::make_unique<QVClickManager>();
        m_outcomes->watch(m_click.get());
        m_click->button()->setParent(m_host.get());
        m_click->button()->setGeometry(100, 100, 300, 44);
        m_click->button()->show();
        connect(m_click->button(), &QVClickButton::clickStatusChanged, this,
                [this](QVClickStatus status) { m_outcomes->add(q("[%1]").arg(status)); });
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
    m_mode = style;
    start();
}

void ModesTestCase::start()
{
    if (m_mode == QVVerifyStylePopup)
        clickManager().button()->click();
    else if (m_mode == QVVerifyStyleInvisible)
        invisibleManager().startInsivible();
    else if (m_embed)
        m_embed->reset();
    else
        (void)embedManager();
}

void ModesTestCase::reset()
{
    withManager([](auto &manager) { manager.reset(); });
}

void ModesTestCase::destroy()
{
    if (m_mode == QVVerifyStyleInvisible)
        m_invisible.reset();
    // A panel or a button that has a parent outlives its manager.
    if (m_mode == QVVerifyStyleEmbed && m_embed) {
        delete m_embed->embedView();
        m_embed.reset();
    }
    if (m_mode == QVVerifyStylePopup && m_click) {
        delete m_click->button();
        m_click.reset();
    }
}

void ModesTestCase::destroyAll()
{
    for (const QVVerifyStyle style : {QVVerifyStyleEmbed, QVVerifyStylePopup, QVVerifyStyleInvisible}) {
        m_mode = style;
        destroy();
    }
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

qsizetype ModesTestCase::popupCount() const
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return std::ranges::count_if(QApplication::allWidgets(),
                                 [](QWidget *widget) { return qobject_cast<QVWindow *>(widget); });
}

QStringList ModesTestCase::badges() const
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList texts;
    for (const QWidget *widget : QApplication::allWidgets()) {
        if (qobject_cast<const QVInvisibleAnimationView *>(widget))
            texts.append(widget->accessibleName());
    }
    return texts;
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

QWindow *ModesTestCase::drawingWindow() const
{
    return drawView() ? drawView()->window()->windowHandle() : nullptr;
}

QObject *ModesTestCase::objectOf(const QString &name) const
{
    return part(partNames.value(name, name).toLatin1().constData());
}

QRect ModesTestCase::frameOf(const QString &name) const
{
    const auto *const part = qobject_cast<QWidget *>(objectOf(name));
    return part && part->isVisible() ? QRect(part->mapTo(part->window(), QPoint()), part->size()) : QRect();
}

QString ModesTestCase::barText() const
{
    for (const auto *const bar : drawView()->findChildren<QVRenderDrawOverlayView *>()) {
        if (bar->isOnScreen())
            return bar->overlayLabel()->text();
    }
    return {};
}

bool ModesTestCase::isLoading() const
{
    return part("imageView")->accessibleDescription() == q("Loading");
}

QImage ModesTestCase::screenshot() const
{
    return onScreen(*drawView()->window());
}

void ModesTestCase::offerAlternative()
{
    drawView()->setOffersAlternative(true);
}

void ModesTestCase::focusPicture(bool has)
{
    part("imageView")->window()->setAttribute(Qt::WA_KeyboardFocusChange, has);
    has ? part("imageView")->setFocus(Qt::TabFocusReason) : part("imageView")->clearFocus();
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

bool ModesTestCase::waitForPicture() const
{
    return waitFor([] { return drawView() && drawView()->canInput(); });
}

void ModesTestCase::strokeAndVerify() const
{
    stroke();
    QVERIFY(waitFor([this] { return service().count(verify) > 0; }));
    settle();
}

void ModesTestCase::pressPicture() const
{
    QVPointerInput::press(*drawView(), QPoint(100, 100));
    QVPointerInput::move(*drawView(), QPoint(130, 120));
}

void ModesTestCase::pressClose() const
{
    auto *const button = popup()->findChild<QVCloseButton *>();
    QVPointerInput::click(*button, button->rect().center());
}
