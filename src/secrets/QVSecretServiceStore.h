#pragma once

#include "secrets/QVSecretConnection.h"
#include "secrets/QVSecretStoreEntry.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

class QVSecretCalls;

/// The store of a freedesktop.org desktop, its Secret Service.
///
/// The connection is kept from one call to the next. A service that did not answer in time, or took
/// long to fail, is then left alone for a while, so that it delays its host once and not at every
/// request. Used by one thread at a time; the clock only in calls, not in preparation.
class QVSecretServiceStore final : public QVSecureStore
{
public:
    QVSecretServiceStore(std::chrono::milliseconds limit, QVSecretClock clock);
    ~QVSecretServiceStore() override;

    [[nodiscard]] Answer copyMatching(const QVSecureQuery &query, Return what) override;
    [[nodiscard]] QVSecureStatus add(const QVSecureItem &item) override;
    [[nodiscard]] QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                                        const QString &accessibility) override;
    [[nodiscard]] QVSecureStatus deleteMatching(const QVSecureQuery &query) override;
    void prepare() override;

private:
    using Operation = std::function<QVSecureStatus(QVSecretCalls &)>;
    struct Found
    {
        QVSecureQuery query;
        std::string path;
    };

    [[nodiscard]] QVSecureStatus read(QVSecretCalls &calls, const QVSecureQuery &query, QByteArray &data);
    [[nodiscard]] QVSecureStatus perform(const Operation &operation);
    [[nodiscard]] QVSecureStatus attempt(QVGlibLoop &loop, const Operation &operation);

    void leaveAlone();

    const std::chrono::milliseconds m_limit;
    const QVSecretClock m_now;
    std::unique_ptr<GMainContext, QVGlibRelease<g_main_context_unref>> m_context;
    std::unique_ptr<QVSecretConnection> m_connection;
    std::chrono::nanoseconds m_leftAloneUntil{0};
    bool m_hungInPreparation = false;
    std::optional<Found> m_lastFound;
};
