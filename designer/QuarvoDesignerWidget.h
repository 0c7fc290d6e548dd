#pragma once

#include <QSize>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <functional>

/// Describes one widget of the component to Qt Designer.
class QuarvoDesignerWidget : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    using Factory = std::function<QWidget *(QWidget *parent)>;

    QuarvoDesignerWidget(QString className, QString objectName, QSize size, Factory create, QObject *parent);

    [[nodiscard]] QString name() const override { return m_className; }
    [[nodiscard]] QString includeFile() const override;
    [[nodiscard]] QString domXml() const override;
    [[nodiscard]] QString group() const override;
    [[nodiscard]] QString toolTip() const override { return m_className; }
    [[nodiscard]] QString whatsThis() const override { return {}; }
    [[nodiscard]] QIcon icon() const override;
    [[nodiscard]] bool isContainer() const override { return false; }
    QWidget *createWidget(QWidget *parent) override;

private:
    QString m_className;
    QString m_objectName;
    QSize m_size;
    Factory m_create;
};
