#pragma once

#include "secrets/QVSecureStore.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

/// The secure store of this desktop, on a thread of its own. No call is waited for longer than a limit. It
/// costs nothing until it is used.
///
/// A call that takes longer is given up, and calls fail without a wait for the next five minutes, and for
/// twice as long each further time in a row. So a service that hangs delays its host once.
class QVDesktopStore final : public QVSecureStore
{
public:
    /// What a user hardly notices, and a hundred times what a lookup takes.
    static constexpr std::chrono::milliseconds usualLimit{250};

    explicit QVDesktopStore(std::chrono::milliseconds limit = usualLimit);
    ~QVDesktopStore() override;

    [[nodiscard]] static QVSecureStore &shared();
    /// Replaces the shared store, which must outlive its use; null brings back the desktop's.
    static void setShared(QVSecureStore *store);

    [[nodiscard]] Answer copyMatching(const QVSecureQuery &query, Return what) override;
    [[nodiscard]] QVSecureStatus add(const QVSecureItem &item) override;
    [[nodiscard]] QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                                        const QString &accessibility) override;
    [[nodiscard]] QVSecureStatus deleteMatching(const QVSecureQuery &query) override;
    /// Connects, once. Waits for nothing.
    void prepare() override;

private:
    using Call = std::function<Answer(QVSecureStore &)>;

    [[nodiscard]] Answer run(Call call);
    [[nodiscard]] bool begin(Call call);
    void giveUp();
    // On the thread:
    void work(const std::stop_token &stop);
    [[nodiscard]] Answer ask(const Call &call, std::unique_lock<std::mutex> &lock);

    const std::chrono::milliseconds m_limit;
    std::chrono::nanoseconds m_leftAloneUntil{0};
    std::chrono::minutes m_pause{0};

    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    /// Counts the calls that were begun and given up.
    int m_turn = 0;
    Call m_call;
    std::optional<Answer> m_answer;
    /// Used on the thread, but for cancel().
    std::unique_ptr<QVSecureStore> m_store;
    // Last: ends before what it works on.
    std::jthread m_thread;
};
