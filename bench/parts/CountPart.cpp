#include "draw/QVRenderDrawView.h"
#include "layers/QVTicker.h"
#include "modes/QVClickButton.h"
#include "parts/PartTools.h"
#include "platform/QVScheduler.h"
#include "views/QVRenderDrawImageView.h"

#include <QCoreApplication>
#include <QPushButton>

namespace {

/// What it takes to make so many widgets in a window and paint them.
double costOfMany(int count, const std::function<QWidget *(QWidget *parent)> &make)
{
    QWidget window;
    window.resize(700, 700);
    const double start = benchNow();
    for (int i = 0; i < count; ++i) {
        QWidget *widget = make(&window);
        widget->setGeometry(10 * (i % 10), 60 * (i / 10), 400, widget->sizeHint().height());
    }
    window.show();
    QCoreApplication::sendPostedEvents();
    return (benchNow() - start) / nanosecondsPerMillisecond;
}

void tellMany(const PartOptions &options, const QString &name, int count,
              const std::function<QWidget *(QWidget *)> &make)
{
    const double memory = benchMemory("Pss");
    QWidget kept;
    for (int i = 0; i < count; ++i)
        make(&kept);
    const double added = benchMemory("Pss") - memory;
    const BenchPair cost = benchInTurn(
        options.rounds(9, 1), [&] { return costOfMany(count, make); },
        [&] { return costOfMany(count, [](QWidget *parent) { return new QPushButton(parent); }); });
    tellRow(
        {QStringLiteral("%1 %2 in a window: making and painting, beside push buttons").arg(count).arg(name),
         QStringLiteral("ms"), cost.ours, cost.limit});
    tellRow({QStringLiteral("%1 %2: memory").arg(count).arg(name), QStringLiteral("MiB"), added});
}

/// All of them move; they share one timer.
void tellMoving(const PartOptions &options, int count)
{
    QWidget window;
    window.resize(700, 700);
    for (int i = 0; i < count; ++i) {
        auto *picture = new QVRenderDrawImageView(&window);
        picture->setGeometry(70 * (i % 10), 60 * (i / 10), 60, 40);
        picture->showLoadingAnimation();
    }
    window.show();
    turnFor(100);
    const int duration = options.rounds(1000, 200);
    const double start = benchCpuNow();
    turnFor(duration);
    const double percent = (benchCpuNow() - start) / nanosecondsPerMillisecond / duration * 100;
    tellRow({QStringLiteral("%1 loading animations in a window: processor").arg(count),
             QStringLiteral("% of a core"), percent});
    tellRow({QStringLiteral("%1 loading animations in a window: timers").arg(count), QStringLiteral("timers"),
             double(QVScheduler::shared().pendingCount()), 1, BenchRow::Target::AtMost, 1});
}

} // namespace

void runCountPart(const PartOptions &options)
{
    configureService(options, QStringLiteral("test-draw"));
    QVTicker::shared().setRefreshRate(60);
    for (const int count : {1, 10, 50})
        tellMoving(options, count);
    for (const int count : {1, 10, 50}) {
        tellMany(options, QStringLiteral("buttons"), count,
                 [](QWidget *parent) { return new QVClickButton(parent); });
        // Of the popup's kind, which asks nothing by itself.
        tellMany(options, QStringLiteral("panels"), count,
                 [](QWidget *parent) { return new QVRenderDrawView(QVVerifyStylePopup, parent); });
    }
}
