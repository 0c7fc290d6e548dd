#pragma once

#include <QHash>
#include <QStringList>

#include <memory>
#include <mutex>

class QVBundle;

/// Finds bundles: first beside the host's program, then in the installed data folder, then among the
/// resources compiled into the library. So a host can change the look by shipping a folder. Its functions may
/// be called from any thread.
class QVMainBundle
{
public:
    [[nodiscard]] static QVMainBundle &shared();

    /// The folder "name.bundle" in the first place that has it; null if none has.
    [[nodiscard]] std::shared_ptr<const QVBundle> bundle(const QString &name);

    [[nodiscard]] static QStringList defaultPlaces();
    void setPlaces(const QStringList &places);

    /// A bundle that is preferred to QVResource.bundle and may be incomplete; null if there is none.
    [[nodiscard]] std::shared_ptr<const QVBundle> hostBundle();
    void setHostBundle(std::shared_ptr<const QVBundle> bundle);

private:
    QVMainBundle();

    std::mutex m_mutex;
    QStringList m_places;
    QHash<QString, std::shared_ptr<const QVBundle>> m_found;
    std::shared_ptr<const QVBundle> m_hostBundle;
};
