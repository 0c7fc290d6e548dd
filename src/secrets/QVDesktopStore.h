#pragma once

#include "platform/QVTaskQueue.h"
#include "platform/QVTimer.h"
#include "secrets/QVSecureStore.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

/// The secure store of this desktop. Calls run on a separate thread, which is started on first use. The
/// caller waits for an answer no longer than a limit. Work that is posted is not waited for, and has the same
/// limit.
///
/// A call that takes longer is cancelled. After that, calls fail at once for five minutes, and for twice as
/// long after each further time-out in a row. So a service that hangs delays its host rarely.
class QVDesktopStore final : public QVSecureStore
{
public:
    /// A delay that a user hardly notices. A lookup usually takes a hundredth of it.
    static constexpr std::chrono::milliseconds usualLimit{250};

    explicit QVDesktopStore(std::chrono::milliseconds limit = usualLimit);
    ~QVDesktopStore() override;

    [[nodiscard]] static QVSecureStore &shared();
    /// Replaces the shared store by \a store, which must outlive its use. Null restores the desktop's.
    static void setShared(QVSecureStore *store);

    [[nodiscard]] Answer copyMatching(const QVSecureQuery &query, Return what) override;
    [[nodiscard]] QVSecureStatus add(const QVSecureItem &item) override;
    [[nodiscard]] QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                                        const QString &accessibility) override;
    [[nodiscard]] QVSecureStatus deleteMatching(const QVSecureQuery &query) override;
    void post(const Work &work, const Done &done) override;
    /// Starts the thread and connects, without waiting. Does nothing if the thread runs already.
    void prepare() override;

private:
    using Call = std::function<Answer(QVSecureStore &)>;
    /// A call, and what takes its answer: on the thread, under the lock, unless the call was given up before.
    struct Job
    {
        Call call;
        std::function<void(Answer &&)> answered;
    };

    [[nodiscard]] bool canBeAsked() const;
    [[nodiscard]] Answer run(Call call);
    [[nodiscard]] bool begin(Job job);
    void finish(int turn, QVSecureStatus status);
    void takeTooLong();
    void giveUp();
    // Called on the thread:
    void work(const std::stop_token &stop);
    [[nodiscard]] Answer ask(const Call &call, std::unique_lock<std::mutex> &lock);

    const std::chrono::milliseconds m_limit;
    std::chrono::nanoseconds m_leftAloneUntil{0};
    std::chrono::minutes m_pause{0};
    /// What to call when posted work is done, in the order of posting.
    std::deque<Done> m_posted;
    QVTimer m_deadline;
    QVTaskQueue m_answers;

    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    /// Raised when calls are given up. Their answers are dropped.
    int m_turn = 0;
    std::deque<Job> m_jobs;
    /// Used on the thread only, except for cancel().
    std::unique_ptr<QVSecureStore> m_store;
    // Last, so that it is joined before the members above are destroyed.
    std::jthread m_thread;
};
