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
