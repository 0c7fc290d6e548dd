#pragma once

#include "settings/QVSecureStore.h"

/// Stands where a build knows no secure store: whatever it is asked, none is available. Secrets are
/// never kept in plain text instead.
class QVUnavailableStore final : public QVSecureStore
{
public:
    [[nodiscard]] Answer copyMatching(const QVSecureQuery &query, Return what) override;
    [[nodiscard]] QVSecureStatus add(const QVSecureItem &item) override;
    [[nodiscard]] QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                                        const QString &accessibility) override;
    [[nodiscard]] QVSecureStatus deleteMatching(const QVSecureQuery &query) override;
};
