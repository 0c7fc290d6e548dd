#pragma once

#include <Quarvo/QuarvoExport.h>

#include <QWidget>

class QVEmbedManager;

/// The embedded panel as a widget of its own, manager included, for forms that are made in Qt
/// Designer. Elsewhere QVEmbedManager alone does the same.
class QUARVO_EXPORT QVEmbedPanel : public QWidget
{
    Q_OBJECT

public:
    /// Starts by itself a tenth of a second later; the verification id has to be set by then.
    explicit QVEmbedPanel(QWidget *parent = nullptr);

    /// What tells of the verification; it lives as long as the panel.
    [[nodiscard]] QVEmbedManager *manager() const;

private:
    QVEmbedManager *const m_manager;
};
