#pragma once

#include <QHash>
#include <QStringList>

#include <memory>
#include <mutex>

class QVBundle;

/// Where bundles are looked for: a host's own copy goes before an installed one, and that before the
/// one compiled into the library, so that a host can re-brand by shipping a folder.
class QVMainBundle
{
public:
    [[nodiscard]] static QVMainBundle &shared();

    /// The folder "name.bundle" in the first place that has it, null where none has.
    [[nodiscard]] std::shared_ptr<const QVBundle> bundle(const QString &name);

    [[nodiscard]] static QStringList defaultPlaces();
    void setPlaces(const QStringList &places);

    /// A bundle that goes before QVResource.bundle and may lack some of it; null where there is none.
    [[nodiscard]] std::shared_ptr<const QVBundle> hostBundle();
    void setHostBundle(std::shared_ptr<const QVBundle> bundle);

private:
    QVMainBundle();

    std::mutex m_mutex;
    QStringList m_places;
    QHash<QString, std::shared_ptr<const QVBundle>> m_found;
    std::shared_ptr<const QVBundle> m_hostBundle;
};
