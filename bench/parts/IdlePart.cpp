#include "draw/QVRenderDrawView.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickManager.h"
#include "modes/QVEmbedManager.h"
#include "parts/PartTools.h"
#include "platform/QVScheduler.h"
#include "popup/QVCloseButton.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMouseEvent>
#include <QWidget>

namespace {

/// Real time, with what runs counted.
class CountingScheduler final : public QVScheduler
{
public:
    CountingScheduler() { setShared(this); }
    ~CountingScheduler() override { setShared(nullptr); }
    Q_DISABLE_COPY(CountingScheduler)

    [[nodiscard]] std::chrono::nanoseconds now() const override { return m_real.now(); }
    [[nodiscard]] double secondsSince1970() const override { return m_real.secondsSince1970(); }
    TaskId schedule(std::chrono::nanoseconds delay, Action action) override
    {
        return m_real.schedule(delay, [this, action = std::move(action)] {
            ++m_runs;
            action();
        });
    }
    void cancel(TaskId id) override { m_real.cancel(id); }
    [[nodiscard]] qsizetype pendingCount() const override { return m_real.pendingCount(); }
    [[nodiscard]] int runs() const { return m_runs; }

private:
    QVScheduler &m_real = QVScheduler::shared();
    int m_runs = 0;
};

/// How often the threads of this process were put on a processor so far.
qint64 contextSwitches()
{
    qint64 count = 0;
    const QString tasks = QStringLiteral("/proc/self/task");
    for (const QString &task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile status(tasks + u'/' + task + QStringLiteral("/status"));
        if (!status.open(QIODevice::ReadOnly))
            continue;
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.contains("voluntary_ctxt_switches"))
                count += line.mid(line.indexOf(':') + 1).trimmed().toLongLong();
        }
    }
    return count;
}

void tellIdle(const PartOptions &options, const QString &what, const CountingScheduler &scheduler,
              qsizetype expectedTimers)
{
    const int duration = options.rounds(10000, 500);
    turnFor(1500);
    const int runs = scheduler.runs();
    const qint64 before = contextSwitches();
    turnFor(duration);
    // The end of the wait itself wakes the process once.
    const qint64 switches = contextSwitches() - before - 1;
    const QString seconds = QString::number(duration / 1000.0);
    tellRow({QStringLiteral("idle %1: timers of ours that fired in %2 s").arg(what, seconds),
             QStringLiteral("times"), double(scheduler.runs() - runs), 0, BenchRow::Target::AtMost, 0});
    // Of a timer interrupt of the system itself a waiting process is put back on its processor too.
    tellRow({QStringLiteral("idle %1: context switches in %2 s").arg(what, seconds), QStringLiteral("times"),
             double(switches), 0, BenchRow::Target::AtMost, 1});
    tellRow({QStringLiteral("idle %1: timers waiting (one is a picture's three minutes)").arg(what),
             QStringLiteral("timers"), double(scheduler.pendingCount()), double(expectedTimers)});
}

void click(QWidget &widget)
{
    const QPointF middle = QRectF(widget.rect()).center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, middle, widget.mapToGlobal(middle), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

} // namespace

void runIdlePanel(const PartOptions &options)
{
    const CountingScheduler scheduler;
    configureService(options, QStringLiteral("test-draw"));
    QWidget window;
    window.resize(400, 270);
    QVEmbedManager manager;
    bool isReady = false;
    QObject::connect(&manager, &QVEmbedManager::ready, &window, [&] { isReady = true; });
    manager.embedView()->setParent(&window);
    manager.embedView()->resize(window.size());
    window.show();
    turnUntil([&] { return isReady; });
    tellIdle(options, QStringLiteral("panel"), scheduler, 1);
}

void runIdleButton(const PartOptions &options)
{
    const CountingScheduler scheduler;
    configureService(options, QStringLiteral("test-draw"));
    QWidget window;
    window.resize(400, 270);
    QVClickManager manager;
    manager.clickButton()->setParent(&window);
    window.show();
    tellIdle(options, QStringLiteral("button"), scheduler, 0);
}

void runIdlePopup(const PartOptions &options)
{
    const CountingScheduler scheduler;
    configureService(options, QStringLiteral("test-draw"));
    QWidget window;
    window.resize(400, 600);
    QVClickManager manager;
    QAbstractButton *button = manager.clickButton();
    button->setParent(&window);
    button->setGeometry(20, 20, 300, 44);
    window.show();
    bool isOpen = false;
    QObject::connect(&manager, &QVClickManager::popupOpened, &window, [&] { isOpen = true; });
    click(*button);
    turnUntil([&] { return isOpen; });
    turnFor(1500);
    bool isClosed = false;
    QObject::connect(&manager, &QVClickManager::closed, &window, [&] { isClosed = true; });
    click(*window.findChild<QVCloseButton *>());
    turnUntil([&] { return isClosed; });
    tellIdle(options, QStringLiteral("popup, hidden"), scheduler, 1);
}
