// Leaves a panel alone for hours, on a clock that runs sixty times as fast, and counts its pictures. Prints a
// line when it has settled and one at the end.

#include "hosts/ConfiguredHost.h"
#include "hosts/HostWindow.h"
#include "modes/Quarvo.h"
#include "platform/QVScheduler.h"

#include <QApplication>
#include <QTimer>

namespace {

constexpr int timesAsFast = 60;

class FastScheduler final : public QVScheduler
{
public:
    FastScheduler() { setShared(this); }
    ~FastScheduler() override { setShared(nullptr); }
    Q_DISABLE_COPY(FastScheduler)

    [[nodiscard]] std::chrono::nanoseconds now() const override { return m_real.now() * timesAsFast; }
    [[nodiscard]] double secondsSince1970() const override { return m_real.secondsSince1970(); }
    TaskId schedule(std::chrono::nanoseconds delay, Action action) override
    {
        return m_real.schedule(delay / timesAsFast, std::move(action));
    }
    void cancel(TaskId id) override { m_real.cancel(id); }
    [[nodiscard]] qsizetype pendingCount() const override { return m_real.pendingCount(); }

private:
    QVScheduler &m_real = QVScheduler::shared();
};

int run(const QString &how)
{
    constexpr std::chrono::minutes settled{4};
    const std::chrono::minutes watched(QApplication::arguments().value(3).toInt());
    const FastScheduler scheduler;
    configureHost(QStringLiteral("test-draw"));
    HostWindow window;
    QVEmbedManager manager;
    int pictures = 0;
    QObject::connect(&manager, &QVEmbedManager::ready, &window, [&] { ++pictures; });
    window.place(manager.embedView(), HostWindow::panelSize);
    window.show();
    const auto real = [](std::chrono::minutes time) {
        return std::chrono::duration_cast<std::chrono::milliseconds>(time) / timesAsFast;
    };
    QTimer::singleShot(real(settled), [&] {
        window.setVisible(how == QLatin1String("visible"));
        pictures = 0;
        tell({});
    });
    QTimer::singleShot(real(settled + watched), [&] { tell({{QStringLiteral("pictures"), pictures}}); });
    return QApplication::exec();
}

} // namespace

/// quarvo-bench-hours visible|hidden ADDRESSES MINUTES
int main(int argc, char *argv[])
{
    return runApplication(argc, argv, run);
}
