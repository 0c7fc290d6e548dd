#pragma once

#include "modes/QVEmbedManager.h"

/// The private data of the panel.
class QVEmbedPanelPrivate
{
public:
    explicit QVEmbedPanelPrivate(QObject *panel)
        : manager(new QVEmbedManager(panel))
    {
    }

    /// Owned by the panel as its child.
    QVEmbedManager *const manager;
};
