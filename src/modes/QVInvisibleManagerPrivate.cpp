#include "modes/QVInvisibleManagerPrivate.h"

#include "modes/QVInvisibleDelegate.h"
#include "modes/QVInvisibleManager.h"
#include "popup/QVHostWatch.h"
#include "popup/QVViewController.h"
#include "service/QVClickResponseModel.h"
#include "views/QVInvisibleAnimationView.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace {

constexpr Qt::WindowFlags badgeWindowFlags = Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                                             Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus;

} // namespace

QVInvisibleManagerPrivate::QVInvisibleManagerPrivate(QVInvisibleManager *manager)
    : q(manager)
{
}

QVInvisibleManagerPrivate::~QVInvisibleManagerPrivate()
{
    // Beyond the application object nothing is on screen, and widgets cannot even be hidden.
    if (QCoreApplication::instance())
        removeAnimationView();
}

QVInvisibleAnimationView *QVInvisibleManagerPrivate::animationView()
{
    if (!animation) {
        removeAnimationView();
        return nullptr;
    }
    if (!m_animationView)
        createAnimationView();
    return m_animationView;
}

void QVInvisibleManagerPrivate::createAnimationView()
{
    QWidget *const host = QVHostWatch::hostWindow();
    // Deleted by removeAnimationView(), or with the host's window.
    m_animationView = new QVInvisibleAnimationView;
    if (host) {
        QVHostWatch::adopt(host, m_animationView);
    } else {
        m_animationView->setWindowFlags(badgeWindowFlags);
        m_animationView->setAttribute(Qt::WA_TranslucentBackground);
        m_animationView->setAttribute(Qt::WA_ShowWithoutActivating);
        m_animationView->setAttribute(Qt::WA_QuitOnClose, false);
    }
    centreAnimationView();
    m_animationView->show();
}

void QVInvisibleManagerPrivate::centreAnimationView() const
{
    if (!m_animationView)
        return;
    const QWidget *const host = m_animationView->parentWidget();
    const QWindow *const foreign = host ? nullptr : QVHostWatch::foreignWindow();
    const QRect elsewhere = foreign ? foreign->geometry() : QGuiApplication::primaryScreen()->geometry();
    const QRect around = host ? host->rect() : elsewhere;
    m_animationView->setCenter(around.topLeft() + QPoint(around.width() / 2, around.height() / 2));
}

void QVInvisibleManagerPrivate::removeAnimationView()
{
    if (m_animationView) {
        m_animationView->clearLayers();
        m_animationView->hide();
        m_animationView->deleteLater();
        m_animationView = nullptr;
    }
    if (const auto controller = std::exchange(m_qv_controller, {}).lock())
        controller->dismissWindow();
    m_closedUnreported += std::exchange(m_drawing, false) ? 1 : 0;
}

void QVInvisibleManagerPrivate::startInsivible()
{
    const auto controller = m_qv_controller.lock();
    if (!controller || !controller->canDirectlyShow()) {
        requestOutageAction();
        return;
    }
    controller->displayWindow();
    if (std::exchange(m_drawing, true))
        return;
    startDeadline();
    Q_EMIT q->popupOpened();
}

void QVInvisibleManagerPrivate::startDeadline()
{
    m_deadline.start([this](const QVError &error) { attemptsTimedOut(error); });
}

void QVInvisibleManagerPrivate::stopDeadlineWhenIdle()
{
    if (m_sequences.empty() && !m_drawing)
        m_deadline.stop();
}

void QVInvisibleManagerPrivate::attemptsTimedOut(const QVError &error)
{
    auto count = m_sequences.size() + (std::exchange(m_drawing, false) ? 1 : 0);
    for (const Sequence &sequence : std::exchange(m_sequences, {}))
        sequence->cancel();
    m_hostWatch.reset();
    removeAnimationView();
    const QPointer<QVInvisibleManager> manager(q);
    for (; count > 0 && manager; --count)
        handleError(error);
}

void QVInvisibleManagerPrivate::requestOutageAction()
{
    startDeadline();
    if (auto *const view = animationView())
        view->startLoadingAnimation();
    watchHost();
    // The click answer may come after the manager has gone.
    m_sequences.push_back(std::make_shared<QVClickSequence>(
        QStringLiteral("invisible"), [manager = QPointer(q)](const QVClickSequence::Outcome &outcome) {
            if (manager)
                manager->d->handleOutcome(outcome);
        }));
    m_sequences.back()->start();
    reportClosed();
}

void QVInvisibleManagerPrivate::watchHost()
{
    if (QWidget *const host = QVHostWatch::hostWindow())
        m_hostWatch = std::make_unique<QVHostWatch>(host);
    else if (QWindow *const foreign = QVHostWatch::foreignWindow())
        m_hostWatch = std::make_unique<QVHostWatch>(foreign);
    else
        return;
    QObject::connect(m_hostWatch.get(), &QVHostWatch::ended, q, [this] { reset(); });
    QObject::connect(m_hostWatch.get(), &QVHostWatch::resized, q, [this] { centreAnimationView(); });
}

void QVInvisibleManagerPrivate::handleOutcome(const QVClickSequence::Outcome &outcome)
{
    std::erase_if(m_sequences, [](const Sequence &sequence) { return sequence->isFinished(); });
    if (m_sequences.empty())
        m_hostWatch.reset();
    removeAnimationView();
    const QPointer<QVInvisibleManager> manager(q);
    if (const auto *const passed = std::get_if<QVClickSequence::Passed>(&outcome))
        handleSuccess(passed->click->token());
    else if (const auto *const failed = std::get_if<QVClickSequence::Failed>(&outcome))
        handleError(failed->error);
    else if (const auto *const draw = std::get_if<QVClickSequence::Draw>(&outcome))
        showVerifyControllerWithConfig(draw->config, draw->click);
    else
        showVerifyControllerWithConfig(nullptr, nullptr);
    if (!manager)
        return;
    stopDeadlineWhenIdle();
    reportClosed();
}

void QVInvisibleManagerPrivate::showVerifyControllerWithConfig(const QVClickSequence::Config &config,
                                                               const QVClickSequence::Click &click)
{
    m_qv_controller = QVViewController::showQvWithVerifyStyle(QVVerifyStyleInvisible, config, click, this);
    m_drawing = true;
    Q_EMIT q->popupOpened();
}

void QVInvisibleManagerPrivate::handleSuccess(const QString &token)
{
    auto *const view = animationView();
    if (!view) {
        report(q, delegate, token);
        return;
    }
    // The user has passed, so neither reset() nor the manager's end takes the token from the host.
    view->passAnimationComplete([manager = QPointer(q), last = delegate, token] {
        if (manager)
            manager->d->removeAnimationView();
        report(manager, last, token);
        if (manager)
            manager->d->reportClosed();
    });
}

void QVInvisibleManagerPrivate::handleError(const QVError &error)
{
    const QPointer<QVInvisibleManager> manager(q);
    if (auto *const receiver = delegate.get())
        receiver->invisibleVerifyFailedWithError(error);
    if (manager)
        Q_EMIT manager->failed(error);
}

void QVInvisibleManagerPrivate::qv_controllerPassedAction()
{
    // The popup's token has been earned in time.
    if (m_sequences.empty())
        m_deadline.stop();
}

void QVInvisibleManagerPrivate::quarvoControllerVerifySuccessWithToken(const QString &token)
{
    // An answer that was on its way when the user closed the popup comes too late.
    if (!std::exchange(m_drawing, false))
        return;
    stopDeadlineWhenIdle();
    report(q, delegate, token);
}

void QVInvisibleManagerPrivate::report(const QPointer<QVInvisibleManager> &manager,
                                       const QVWeakDelegate<QVInvisibleDelegate> &last, const QString &token)
{
    if (auto *const receiver = manager ? manager->delegate() : last.get())
        receiver->invisibleVerifyPassedWithToken(token);
    if (manager)
        Q_EMIT manager->passed(token);
}

void QVInvisibleManagerPrivate::qv_controllerCloseAction()
{
    // The delegate is not told, on purpose: it hears results only.
    m_closedUnreported += std::exchange(m_drawing, false) ? 1 : 0;
    stopDeadlineWhenIdle();
    reportClosed();
}

void QVInvisibleManagerPrivate::qv_controllerOutageAction()
{
    Q_EMIT q->outageStarted();
}

void QVInvisibleManagerPrivate::reset()
{
    removeAnimationView();
    m_hostWatch.reset();
    for (const Sequence &sequence : std::exchange(m_sequences, {})) {
        sequence->cancel();
        ++m_closedUnreported;
    }
    m_deadline.stop();
    reportClosed();
}

void QVInvisibleManagerPrivate::reportClosed()
{
    const QPointer<QVInvisibleManager> manager(q);
    for (int count = std::exchange(m_closedUnreported, 0); count > 0 && manager; --count)
        Q_EMIT manager->closed();
}
