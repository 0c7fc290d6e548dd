#include "modes/QVEmbedPanel.h"

#include "modes/QVEmbedManager.h"

#include <QVBoxLayout>

QVEmbedPanel::QVEmbedPanel(QWidget *parent)
    : QWidget(parent)
    , m_manager(new QVEmbedManager(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_manager->embedView());
}

QVEmbedManager *QVEmbedPanel::manager() const
{
    return m_manager;
}

QString QVEmbedPanel::vid() const
{
    return m_manager->vid();
}

void QVEmbedPanel::setVid(const QString &vid)
{
    m_manager->setVid(vid);
}

QString QVEmbedPanel::scene() const
{
    return m_manager->scene();
}

void QVEmbedPanel::setScene(const QString &scene)
{
    m_manager->setScene(scene);
}
