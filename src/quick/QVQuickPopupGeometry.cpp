#include "quick/QVQuickPopupGeometry.h"

#include "quick/QVQuickLook.h"
#include "settings/QVConfigurationManager.h"

QVQuickPopupGeometry::QVQuickPopupGeometry(QObject *parent)
    : QObject(parent)
{
    connect(&QVQuickLookNotice::shared(), &QVQuickLookNotice::changed, this, &QVQuickPopupGeometry::changed);
}

QVPopupGeometry QVQuickPopupGeometry::geometry() const
{
    const bool mayBeCard =
        QVConfigurationManager::sharedManager().popupPresentation() == QVPopupPresentation::Automatic;
    return {QSizeF(m_width, m_height).toSize(), mayBeCard};
}
