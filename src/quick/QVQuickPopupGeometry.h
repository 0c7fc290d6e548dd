#pragma once

#include "flow/QVPopupGeometry.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// Where a popup lies in the window that it covers.
class QVQuickPopupGeometry : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QuarvoPopupGeometry)
    Q_PROPERTY(double width MEMBER m_width NOTIFY changed)
    Q_PROPERTY(double height MEMBER m_height NOTIFY changed)
    Q_PROPERTY(bool isCard READ isCard NOTIFY changed)
    Q_PROPERTY(QRectF screen READ screen NOTIFY changed)

public:
    explicit QVQuickPopupGeometry(QObject *parent = nullptr);

    [[nodiscard]] bool isCard() const { return geometry().isCard(); }
    [[nodiscard]] QRectF screen() const { return geometry().screen(); }

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QVPopupGeometry geometry() const;

    double m_width = 0;
    double m_height = 0;
};
