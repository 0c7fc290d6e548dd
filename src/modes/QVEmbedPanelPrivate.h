#pragma once

#include "modes/QVEmbedManager.h"

/// What the panel consists of besides its widgets.
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
