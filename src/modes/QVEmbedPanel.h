#pragma once

#include <Quarvo/QuarvoExport.h>

#include <QWidget>

#include <memory>

class QVEmbedManager;
class QVEmbedPanelPrivate;

/// The embedded panel as a widget that contains its manager, for forms made in Qt Designer. In code
/// QVEmbedManager does the same.
///
/// Use it on the thread of the application object, as every widget.
///
/// \code
/// auto *panel = new QVEmbedPanel(this);
/// layout->addWidget(panel);
/// connect(panel->manager(), &QVEmbedManager::passed, this, &Login::sendToken);
/// \endcode
class QUARVO_EXPORT QVEmbedPanel : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString vid READ vid WRITE setVid)
    Q_PROPERTY(QString scene READ scene WRITE setScene)

public:
    /// Starts by itself a tenth of a second later. The verification id must be set by then.
    explicit QVEmbedPanel(QWidget *parent = nullptr);
    ~QVEmbedPanel() override;

    /// The verification id of this panel. Null, the default, means that of QVSDKManager.
    [[nodiscard]] QString vid() const;
    /// Sets the verification id of this panel, or with null that of QVSDKManager. Takes effect for the next
    /// request.
    void setVid(const QString &vid);
    /// The scene of this panel. Null, the default, means that of QVSDKManager.
    [[nodiscard]] QString scene() const;
    /// Sets the scene of this panel, or with null that of QVSDKManager. Takes effect for the next request.
    void setScene(const QString &scene);

    /// The manager that emits the signals of this panel; owned by the panel.
    [[nodiscard]] QVEmbedManager *manager() const;

private:
    const std::unique_ptr<QVEmbedPanelPrivate> d;
};
