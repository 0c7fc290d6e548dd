#include "faults/FaultsTestCase.h"

#include "draw/QVRenderDrawView.h"
#include "popup/QVWindow.h"
#include "support/QVPointerInput.h"
#include "support/QVWait.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QApplication>

using namespace std::chrono_literals;

void FaultsTestCase::prepare()
{
    QVSDKManager::setPreferredLanguage(QStringLiteral("en"));
    m_faults = std::make_unique<FaultService>();
    m_outcomes = std::make_unique<Outcomes>();
    m_begun = 0;
    m_panelFailures = 0;
    m_host = std::make_unique<QWidget>();
    m_host->resize(700, 600);
    m_host->show();
    m_host->activateWindow();
    QVERIFY(qv_becomesActive(*m_host));
}

void FaultsTestCase::finish()
{
    m_manager.reset();
    m_host.reset();
    m_outcomes.reset();
    settle();
    m_faults.reset();
}

void FaultsTestCase::openMode(QVVerifyStyle style)
{
    m_style = style;
    if (style == QVVerifyStyleEmbed) {
        auto manager = std::make_unique<QVEmbedManager>();
        m_widget = manager->embedView();
        m_manager = std::move(manager);
        m_widget->setParent(m_host.get());
        m_widget->setGeometry(0, 0, 414, 300);
        watchPanel();
    } else if (style == QVVerifyStylePopup) {
        auto manager = std::make_unique<QVClickManager>();
        connect(manager.get(), &QVClickManager::popupOpened, this, &FaultsTestCase::watchPanel);
        m_outcomes->watch(manager->button());
        m_widget = manager->button();
        m_manager = std::move(manager);
        m_widget->setParent(m_host.get());
        m_widget->setGeometry(0, 0, 300, 44);
    } else {
        auto manager = std::make_unique<QVInvisibleManager>();
        m_outcomes->watch(manager.get());
        connect(manager.get(), &QVInvisibleManager::popupOpened, this, &FaultsTestCase::watchPanel);
        m_manager = std::move(manager);
    }
    if (m_widget)
        m_widget->show();
}

void FaultsTestCase::begin()
{
    ++m_begun;
    m_lastFailure.clear();
    if (auto *button = qobject_cast<QVClickButton *>(m_widget))
        QVPointerInput::click(*button, button->rect().center());
    else if (auto *invisible = qobject_cast<QVInvisibleManager *>(m_manager.get()))
        invisible->startInsivible();
    else if (m_begun == 1)
        advance(100ms); // A panel starts by itself.
    else
        reset();
}

void FaultsTestCase::reset()
{
    m_lastFailure.clear();
    if (m_manager)
        QMetaObject::invokeMethod(m_manager.get(), "reset");
}

void FaultsTestCase::destroyWidget()
{
    delete m_widget;
}

QVRenderDrawView *FaultsTestCase::panel() const
{
    for (QWidget *widget : QApplication::allWidgets()) {
        auto *const view = qobject_cast<QVRenderDrawView *>(widget);
        if (view && view->isVisible())
            return view;
    }
    return nullptr;
}

QWidget *FaultsTestCase::part(const char *name) const
{
    return panel() ? panel()->findChild<QWidget *>(QLatin1String(name)) : nullptr;
}

void FaultsTestCase::clickPart(const char *name)
{
    m_lastFailure.clear();
    // What slides or fades in has come to rest.
    advance(500ms);
    QVPointerInput::click(*part(name), part(name)->rect().center());
}

void FaultsTestCase::draw()
{
    m_lastFailure.clear();
    advance(500ms);
    const QWidget &picture = *part("imageView");
    const QPoint start = picture.mapTo(panel(), QPoint(30, picture.height() / 2));
    QVPointerInput::strokeWithMouse(*panel(), QVPointerInput::wave(start, 20, 8), [this] { advance(20ms); });
}

bool FaultsTestCase::isReady() const
{
    return panel() && panel()->canInput().value_or(false) && m_lastFailure.isEmpty();
}

QString FaultsTestCase::message() const
{
    if (const QWidget *bar = part("errorOverlayView"); bar && !m_lastFailure.isEmpty())
        return static_cast<const QVRenderDrawOverlayView *>(bar)->overlayLabel()->text().trimmed();
    const auto *button = qobject_cast<QVClickButton *>(m_widget);
    if (button && button->clickStatus() == QVClickStatusFailed)
        return button->statusText();
    const bool isTold =
        m_style == QVVerifyStyleInvisible && ended() == m_begun && !outcomes().told().isEmpty();
    return isTold ? outcomes().told().constLast() : QString();
}

bool FaultsTestCase::waitForReady() const
{
    return waitFor([this] { return isReady(); });
}

bool FaultsTestCase::passUntil(const std::function<bool()> &condition) const
{
    return waitFor([&] {
        if (!condition())
            advance(250ms);
        return condition();
    });
}

void FaultsTestCase::settle() const
{
    for (int turn = 0; turn < 3; ++turn) {
        QTest::qWait(1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

qsizetype FaultsTestCase::popupCount()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return std::ranges::count_if(QApplication::allWidgets(),
                                 [](QWidget *widget) { return qobject_cast<QVWindow *>(widget); });
}

void FaultsTestCase::watchPanel()
{
    for (QVRenderDrawView *view : m_host->findChildren<QVRenderDrawView *>())
        connect(view, &QVRenderDrawView::failed, this, &FaultsTestCase::panelHasFailed, Qt::UniqueConnection);
}

void FaultsTestCase::panelHasFailed(const QVError &error)
{
    ++m_panelFailures;
    m_lastFailure = error.domain();
}
