#pragma once

#include "secrets/QVSecureStore.h"

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

/// A store that is made at its first use, which may load a library; in a thread where there is time
/// for that. A call that comes meanwhile waits, within the limit.
class QVDeferredStore final : public QVSecureStore
{
public:
    using Make = std::function<std::unique_ptr<QVSecureStore>()>;

    /// \a make may give null, where there is no store; the next call then asks it again.
    QVDeferredStore(Make make, std::chrono::milliseconds limit);
    ~QVDeferredStore() override;

    [[nodiscard]] Answer copyMatching(const QVSecureQuery &query, Return what) override;
    [[nodiscard]] QVSecureStatus add(const QVSecureItem &item) override;
    [[nodiscard]] QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                                        const QString &accessibility) override;
    [[nodiscard]] QVSecureStatus deleteMatching(const QVSecureQuery &query) override;
    /// Makes the store and has it prepare, once.
    void prepare() override;

private:
    [[nodiscard]] QVSecureStatus with(const std::function<QVSecureStatus(QVSecureStore &)> &call);
    /// With the mutex held.
    [[nodiscard]] QVSecureStore *store();

    const Make m_make;
    const std::chrono::milliseconds m_limit;
    std::timed_mutex m_mutex;
    std::unique_ptr<QVSecureStore> m_store;
    // Last: ends before what it works on.
    std::jthread m_preparation;
};
