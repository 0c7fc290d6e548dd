#pragma once

#include <QImage>
#include <QQuickItem>

/// A picture that fills its item: one of the resource bundle by its name, or one that is set from C++.
class QVQuickPicture : public QQuickItem
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QuarvoPicture)
    /// As for qv_imageFromBundleWithName(). The size of the picture is the item's implicit size.
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)

public:
    explicit QVQuickPicture(QQuickItem *parent = nullptr);

    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString &name);
    [[nodiscard]] const QImage &image() const { return m_image; }
    void setImage(const QImage &image);

Q_SIGNALS:
    void nameChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    QString m_name;
    QImage m_image;
    bool m_isNew = false;
};
