#include "secrets/QVBoundedStore.h"

#include "platform/QVScheduler.h"

#include <algorithm>
#include <system_error>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::minutes firstPause = 5min;
constexpr std::chrono::minutes longestPause = 24h;

const QVSecureStore::Answer notAvailable{QVSecureStatus::NotAvailable, {}};

} // namespace

QVBoundedStore::QVBoundedStore(Make make, std::chrono::milliseconds limit)
    : m_make(std::move(make))
    , m_limit(limit)
{
}

QVBoundedStore::~QVBoundedStore()
{
    m_thread.request_stop();
    const std::scoped_lock lock(m_mutex);
    if (m_store)
        m_store->cancel();
}

QVSecureStore::Answer QVBoundedStore::copyMatching(const QVSecureQuery &query, Return what)
{
    return run([query, what](QVSecureStore &store) { return store.copyMatching(query, what); });
}

QVSecureStatus QVBoundedStore::add(const QVSecureItem &item)
{
    return run([item](QVSecureStore &store) { return Answer{store.add(item), {}}; }).status;
}

QVSecureStatus QVBoundedStore::update(const QVSecureQuery &query, const QByteArray &data,
                                      const QString &accessibility)
{
    return run([=](QVSecureStore &store) {
               return Answer{store.update(query, data, accessibility), {}};
           })
        .status;
}

QVSecureStatus QVBoundedStore::deleteMatching(const QVSecureQuery &query)
{
    return run([query](QVSecureStore &store) { return Answer{store.deleteMatching(query), {}}; }).status;
}

void QVBoundedStore::prepare()
{
    if (m_thread.joinable())
        return;
    (void)begin([](QVSecureStore &store) {
        store.prepare();
        return Answer();
    });
}

QVSecureStore::Answer QVBoundedStore::run(Call call)
{
    if (QVScheduler::shared().now() < m_leftAloneUntil)
        return notAvailable;
    const std::shared_ptr<Job> job = begin(std::move(call));
    std::unique_lock lock(m_mutex);
    if (job && m_changed.wait_for(lock, m_limit, [&] { return job->isDone; }))
        m_pause = 0min;
    else if (job)
        giveUp(*job);
    return job ? job->answer : notAvailable;
}

/// Null where there is no thread to be had.
std::shared_ptr<QVBoundedStore::Job> QVBoundedStore::begin(Call call)
{
    try {
        if (!m_thread.joinable())
            m_thread = std::jthread([this](const std::stop_token &stop) { work(stop); });
    } catch (const std::system_error &) {
        return nullptr;
    }
    const auto job = std::make_shared<Job>(Job{.call = std::move(call)});
    const std::scoped_lock lock(m_mutex);
    m_jobs.push_back(job);
    m_changed.notify_all();
    return job;
}

void QVBoundedStore::giveUp(Job &job)
{
    job.isGivenUp = true;
    // The thread holds it until it comes back from it.
    if (m_store)
        m_store->cancel();
    m_store.reset();
    m_pause = m_pause == 0min ? firstPause : std::min(2 * m_pause, longestPause);
    m_leftAloneUntil = QVScheduler::shared().now() + m_pause;
}

void QVBoundedStore::work(const std::stop_token &stop)
{
    std::unique_lock lock(m_mutex);
    while (m_changed.wait(lock, stop, [this] { return !m_jobs.empty(); }) && !stop.stop_requested()) {
        const std::shared_ptr<Job> job = m_jobs.front();
        m_jobs.pop_front();
        if (!m_store) {
            lock.unlock();
            std::shared_ptr<QVSecureStore> made = m_make();
            lock.lock();
            m_store = std::move(made);
        }
        const std::shared_ptr<QVSecureStore> store = m_store;
        if (store && !job->isGivenUp && !stop.stop_requested()) {
            lock.unlock();
            Answer answer = job->call(*store);
            lock.lock();
            job->answer = std::move(answer);
        }
        job->isDone = true;
        m_changed.notify_all();
    }
}
