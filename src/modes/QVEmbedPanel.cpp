#include "modes/QVEmbedPanel.h"

#include "modes/QVEmbedManager.h"
#include "modes/QVEmbedPanelPrivate.h"

#include <QVBoxLayout>

QVEmbedPanel::QVEmbedPanel(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<QVEmbedPanelPrivate>(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(d->manager->embedView());
}

QVEmbedPanel::~QVEmbedPanel() = default;

QVEmbedManager *QVEmbedPanel::manager() const
{
    return d->manager;
}

QString QVEmbedPanel::vid() const
{
    return d->manager->vid();
}

void QVEmbedPanel::setVid(const QString &vid)
{
    d->manager->setVid(vid);
}

QString QVEmbedPanel::scene() const
{
    return d->manager->scene();
}

void QVEmbedPanel::setScene(const QString &scene)
{
    d->manager->setScene(scene);
}
