#pragma once

#include "secrets/QVSecureStore.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

/// A store on a thread of its own, each call of which is waited for no longer than a limit.
///
/// A store that takes longer is given up and left alone: calls fail without a wait for five minutes, and
/// for twice as long each further time in a row. So a service that hangs delays its host once.
class QVBoundedStore final : public QVSecureStore
{
public:
    using Make = std::function<std::unique_ptr<QVSecureStore>()>;

    /// \a make is called on the thread, when the store is first needed and after it was given up; it may
    /// load a library. Where it gives null the next call asks it again.
    QVBoundedStore(Make make, std::chrono::milliseconds limit);
    ~QVBoundedStore() override;

    [[nodiscard]] Answer copyMatching(const QVSecureQuery &query, Return what) override;
    [[nodiscard]] QVSecureStatus add(const QVSecureItem &item) override;
    [[nodiscard]] QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                                        const QString &accessibility) override;
    [[nodiscard]] QVSecureStatus deleteMatching(const QVSecureQuery &query) override;
    /// Makes the store and has it prepare, once. Waits for nothing.
    void prepare() override;

private:
    using Call = std::function<Answer(QVSecureStore &)>;
    struct Job
    {
        Call call;
        Answer answer{QVSecureStatus::NotAvailable, {}};
        bool isDone = false;
        bool isGivenUp = false;
    };

    [[nodiscard]] Answer run(Call call);
    [[nodiscard]] std::shared_ptr<Job> begin(Call call);
    void giveUp(Job &job);
    void work(const std::stop_token &stop);

    const Make m_make;
    const std::chrono::milliseconds m_limit;
    std::chrono::nanoseconds m_leftAloneUntil{0};
    std::chrono::minutes m_pause{0};

    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::deque<std::shared_ptr<Job>> m_jobs;
    std::shared_ptr<QVSecureStore> m_store;
    // Last: ends before what it works on.
    std::jthread m_thread;
};
