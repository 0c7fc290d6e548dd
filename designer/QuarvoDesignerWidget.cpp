#include "designer/QuarvoDesignerWidget.h"

#include "designer/QuarvoStillScheduler.h"

#include <Quarvo/QVSDKManager.h>
#include <Quarvo/QVServiceAddresses.h>

#include <QIcon>

#include <utility>

namespace {

/// A form in Qt Designer must not send requests. Time stands still, so that no delayed request starts. A
/// click in a preview would send one at once, but all addresses are empty.
void keepQuiet()
{
    static QuarvoStillScheduler still;
    QVScheduler::setShared(&still);
    QVServiceAddresses nowhere;
    nowhere.setApiHost({});
    nowhere.setDownloadHost({});
    nowhere.setImageHost({});
    nowhere.setCdn({});
    nowhere.setHelpPage({});
    nowhere.setOutageHelpPage({});
    QVSDKManager::setServiceAddresses(nowhere);
}

} // namespace

QuarvoDesignerWidget::QuarvoDesignerWidget(QString className, QString objectName, QSize size, Factory create,
                                           QObject *parent)
    : QObject(parent)
    , m_className(std::move(className))
    , m_objectName(std::move(objectName))
    , m_size(size)
    , m_create(std::move(create))
{
}

QString QuarvoDesignerWidget::includeFile() const
{
    return QStringLiteral("<Quarvo/%1.h>").arg(m_className);
}

QString QuarvoDesignerWidget::domXml() const
{
    return QStringLiteral("<ui language=\"c++\"><widget class=\"%1\" name=\"%2\"><property name=\"geometry\">"
                          "<rect><x>0</x><y>0</y><width>%3</width><height>%4</height></rect>"
                          "</property></widget></ui>")
        .arg(m_className, m_objectName)
        .arg(m_size.width())
        .arg(m_size.height());
}

QString QuarvoDesignerWidget::group() const
{
    return QStringLiteral("Quarvo");
}

QIcon QuarvoDesignerWidget::icon() const
{
    return {};
}

QWidget *QuarvoDesignerWidget::createWidget(QWidget *parent)
{
    keepQuiet();
    return m_create(parent);
}
