#include "secrets/QVDesktopStore.h"

#include "platform/QVScheduler.h"
#include "secrets/QVSessionBus.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <system_error>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::minutes firstPause = 5min;
constexpr std::chrono::minutes longestPause = 24h;

const QVSecureStore::Answer notAvailable{QVSecureStatus::NotAvailable, {}};

QVSecureStore *replacement = nullptr;

/// Null if there is no bus or no module. The bus is looked for again at the next call.
std::unique_ptr<QVSecureStore> open()
{
    const QByteArray bus = qv_sessionBusAddress();
    if (bus.isEmpty())
        return nullptr;
    static const QVOpenSecretStore make = qv_findSecretStore();
    return std::unique_ptr<QVSecureStore>(make ? make(bus) : nullptr);
}

} // namespace

QVSecureStore &QVDesktopStore::shared()
{
    if (replacement)
        return *replacement;
    // The holder is never destroyed: a host's static application object may be destroyed after our statics.
    static auto *const store = new std::unique_ptr<QVDesktopStore>;
    if (!*store) {
        *store = std::make_unique<QVDesktopStore>();
        // Its answers are posted as events, which a later application object would not deliver. The thread
        // must also end if the host calls exit() and keeps its application object.
        constexpr auto end = [] {
            store->reset();
        };
        qAddPostRoutine(end);
        std::atexit(end);
    }
    return **store;
}

void QVDesktopStore::setShared(QVSecureStore *store)
{
    replacement = store;
}

QVDesktopStore::QVDesktopStore(std::chrono::milliseconds limit)
    : m_limit(limit)
{
}

QVDesktopStore::~QVDesktopStore()
{
    m_thread.request_stop();
    giveUp();
}

QVSecureStore::Answer QVDesktopStore::copyMatching(const QVSecureQuery &query, Return what)
{
    return run([query, what](QVSecureStore &store) { return store.copyMatching(query, what); });
}

QVSecureStatus QVDesktopStore::add(const QVSecureItem &item)
{
    return run([item](QVSecureStore &store) { return Answer{store.add(item), {}}; }).status;
}

QVSecureStatus QVDesktopStore::update(const QVSecureQuery &query, const QByteArray &data,
                                      const QString &accessibility)
{
    return run([=](QVSecureStore &store) {
               return Answer{store.update(query, data, accessibility), {}};
           })
        .status;
}

QVSecureStatus QVDesktopStore::deleteMatching(const QVSecureQuery &query)
{
    return run([query](QVSecureStore &store) { return Answer{store.deleteMatching(query), {}}; }).status;
}

void QVDesktopStore::post(const Work &work, const Done &done)
{
    if (!canBeAsked())
        return done(QVSecureStatus::NotAvailable);
    std::unique_lock lock(m_mutex);
    const bool isBegun =
        begin({[work](QVSecureStore &store) {
                   return Answer{work(store), {}};
               },
               [this, turn = m_turn](const Answer &answer) {
                   m_answers.post([=, this, status = answer.status] { finish(turn, status); });
               }});
    lock.unlock();
    if (!isBegun)
        return done(QVSecureStatus::NotAvailable);
    m_posted.push_back(done);
    if (!m_deadline.isActive())
        m_deadline.start(m_limit, [this] { takeTooLong(); });
}

void QVDesktopStore::prepare()
{
    if (m_thread.joinable() || !canBeAsked())
        return;
    const std::scoped_lock lock(m_mutex);
    (void)begin({[](QVSecureStore &store) {
                     store.prepare();
                     return Answer();
                 },
                 [](const Answer &) {
                 }});
}

/// Whether there may be an answer. Without a bus no thread is started.
bool QVDesktopStore::canBeAsked() const
{
    return QVScheduler::shared().now() >= m_leftAloneUntil && !qv_sessionBusAddress().isEmpty();
}

QVSecureStore::Answer QVDesktopStore::run(Call call)
{
    if (!canBeAsked())
        return notAvailable;
    std::optional<Answer> result;
    std::unique_lock lock(m_mutex);
    if (!begin({std::move(call), [&result](Answer &&answer) {
                    result = std::move(answer);
                }}))
        return notAvailable;
    const bool isInTime = m_changed.wait_for(lock, m_limit, [&result] { return result.has_value(); });
    lock.unlock();
    if (!isInTime) {
        takeTooLong();
        return notAvailable;
    }
    m_pause = 0min;
    return *std::move(result);
}

/// Queues \a job for the thread. Returns false if no thread can be created.
bool QVDesktopStore::begin(Job job)
{
    try {
        if (!m_thread.joinable())
            m_thread = std::jthread([this](const std::stop_token &stop) { work(stop); });
    } catch (const std::system_error &) {
        return false;
    }
    m_jobs.push_back(std::move(job));
    m_changed.notify_all();
    return true;
}

void QVDesktopStore::finish(int turn, QVSecureStatus status)
{
    // The work may have been given up while its answer was on the way.
    if (turn != m_turn)
        return;
    m_pause = 0min;
    const Done done = std::move(m_posted.front());
    m_posted.pop_front();
    if (m_posted.empty())
        m_deadline.stop();
    done(status);
}

void QVDesktopStore::takeTooLong()
{
    giveUp();
    m_pause = m_pause == 0min ? firstPause : std::min(2 * m_pause, longestPause);
    m_leftAloneUntil = QVScheduler::shared().now() + m_pause;
    m_deadline.stop();
    for (const Done &done : std::exchange(m_posted, {}))
        done(QVSecureStatus::NotAvailable);
}

void QVDesktopStore::giveUp()
{
    const std::scoped_lock lock(m_mutex);
    ++m_turn;
    m_jobs.clear();
    if (m_store)
        m_store->cancel();
}

void QVDesktopStore::work(const std::stop_token &stop)
{
    std::unique_lock lock(m_mutex);
    while (m_changed.wait(lock, stop, [this] { return !m_jobs.empty(); })) {
        const Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        const int turn = m_turn;
        const bool isKept = m_store != nullptr;
        Answer answer = ask(job.call, lock);
        // The service may have been restarted since the store connected to it: try once more with a new
        // connection.
        if (isKept && answer.status == QVSecureStatus::NotAvailable && turn == m_turn)
            answer = ask(job.call, lock);
        if (turn != m_turn)
            continue;
        job.answered(std::move(answer));
        m_changed.notify_all();
    }
    m_store.reset();
}

/// Runs \a call, without the lock while the desktop works. A store that fails is replaced at the next call.
QVSecureStore::Answer QVDesktopStore::ask(const Call &call, std::unique_lock<std::mutex> &lock)
{
    const int turn = m_turn;
    if (!m_store) {
        lock.unlock();
        std::unique_ptr<QVSecureStore> opened = open();
        lock.lock();
        m_store = std::move(opened);
    }
    Answer answer = notAvailable;
    if (m_store && turn == m_turn) {
        lock.unlock();
        answer = call(*m_store);
        lock.lock();
    }
    if (answer.status == QVSecureStatus::NotAvailable)
        m_store.reset();
    return answer;
}
