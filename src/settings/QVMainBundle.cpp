#include "settings/QVMainBundle.h"

#include "QVBuildChoices.h"
#include "settings/QVBundle.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <dlfcn.h>
#include <utility>

// Q_INIT_RESOURCE must be used outside any namespace. Without this call the linker would leave the resources
// out of a static library.
static void registerCompiledResources()
{
    Q_INIT_RESOURCE(quarvo);
}

namespace {

/// The data folder of the prefix that this code was installed in; empty if that is unknown.
QString installedPlace()
{
    Dl_info code{};
    if (dladdr(reinterpret_cast<const void *>(&registerCompiledResources), &code) == 0)
        return {};
    const QFileInfo library(QFile::decodeName(code.dli_fname));
    // If the code is linked into the program, the name is the one that the program was started with, which
    // may be relative and is of no use here.
    if (library.isRelative())
        return {};
    return QDir::cleanPath(library.path() + u'/' + QVBuildChoices::dataFromLibrary.toString());
}

} // namespace

QVMainBundle &QVMainBundle::shared()
{
    static QVMainBundle bundle;
    return bundle;
}

QVMainBundle::QVMainBundle()
    : m_places(defaultPlaces())
{
    registerCompiledResources();
}

QStringList QVMainBundle::defaultPlaces()
{
    QStringList places{QCoreApplication::applicationDirPath()};
    if (const QString installed = installedPlace(); !installed.isEmpty())
        places.append(installed);
    return places << QStringLiteral(":");
}

void QVMainBundle::setPlaces(const QStringList &places)
{
    const std::scoped_lock lock(m_mutex);
    m_places = places;
    m_found.clear();
}

std::shared_ptr<const QVBundle> QVMainBundle::bundle(const QString &name)
{
    const std::scoped_lock lock(m_mutex);
    if (const auto known = m_found.value(name))
        return known;
    for (const QString &place : std::as_const(m_places)) {
        const auto found = QVBundle::open(place + u'/' + name + QLatin1String(".bundle"));
        if (found)
            return *m_found.insert(name, found);
    }
    return nullptr;
}

std::shared_ptr<const QVBundle> QVMainBundle::hostBundle()
{
    const std::scoped_lock lock(m_mutex);
    return m_hostBundle;
}

void QVMainBundle::setHostBundle(std::shared_ptr<const QVBundle> bundle)
{
    const std::scoped_lock lock(m_mutex);
    m_hostBundle = std::move(bundle);
}
