#pragma once

#include "platform/QVError.h"
#include "platform/QuarvoCoreExport.h"

#include <QImage>

#include <functional>
#include <memory>
#include <optional>

class QVImageResources;

/// Loads pictures by address. Used on the main thread.
class QUARVO_CORE_EXPORT QVImageLoader
{
public:
    /// Receives a picture, or a null one and the error: on the main thread, exactly once unless
    /// the application object goes first, never before the call to load() has returned.
    using Completion = std::function<void(QImage, std::optional<QVError>)>;

    QVImageLoader(const QVImageLoader &) = delete;
    QVImageLoader &operator=(const QVImageLoader &) = delete;

    [[nodiscard]] static QVImageLoader &shared();

    /// Does ahead what the first load needs, so that its picture need not wait for it: a folder on disk
    /// and the decoder of the usual format.
    void prepare();
    /// Whether a picture is being decoded, or read from disk.
    [[nodiscard]] bool isWorking() const;
    void load(const QString &address, Completion completion);

private:
    QVImageLoader();

    QVImageResources &resources();

    std::unique_ptr<QVImageResources> m_resources;
};
