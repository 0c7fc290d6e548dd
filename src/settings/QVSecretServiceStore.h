#pragma once

#include "settings/QVSecretConnection.h"
#include "settings/QVSecureStore.h"

#include <chrono>
#include <functional>
#include <mutex>
#include <thread>

class QVSecretCalls;

/// The store of a freedesktop.org desktop, its Secret Service.
///
/// The connection is kept from one call to the next. A service that did not answer in time is then
/// left alone for a while, so that it delays its host once and not at every request.
class QVSecretServiceStore final : public QVSecureStore
{
public:
    explicit QVSecretServiceStore(std::chrono::milliseconds limit);
    ~QVSecretServiceStore() override;

    [[nodiscard]] Answer copyMatching(const QVSecureQuery &query, Return what) override;
    [[nodiscard]] QVSecureStatus add(const QVSecureItem &item) override;
    [[nodiscard]] QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                                        const QString &accessibility) override;
    [[nodiscard]] QVSecureStatus deleteMatching(const QVSecureQuery &query) override;
    /// Connects in a thread, once; a call that comes meanwhile waits for it.
    void prepare() override;

private:
    using Operation = std::function<QVSecureStatus(QVSecretCalls &)>;

    [[nodiscard]] QVSecureStatus perform(const Operation &operation);
    [[nodiscard]] QVSecureStatus attempt(QVGlibLoop &loop, const Operation &operation);

    const std::chrono::milliseconds m_limit;
    std::mutex m_mutex;
    std::unique_ptr<GMainContext, QVGlibRelease<g_main_context_unref>> m_context;
    std::unique_ptr<QVSecretConnection> m_connection;
    std::chrono::nanoseconds m_leftAloneUntil{0};
    bool m_hungInPreparation = false;
    // Last: ends before what it works on.
    std::jthread m_preparation;
};
