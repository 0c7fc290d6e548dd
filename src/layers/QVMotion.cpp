#include "layers/QVMotion.h"

#include "settings/QVConfigurationManager.h"

#include <QApplication>
#include <QStyle>

bool QVMotion::isReduced()
{
    const QStyle *style = QApplication::style();
    return QVConfigurationManager::sharedManager().isMotionReduced() ||
           style->styleHint(QStyle::SH_Widget_Animate) == 0 ||
           style->styleHint(QStyle::SH_Widget_Animation_Duration) == 0;
}
