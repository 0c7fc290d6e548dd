#pragma once

#include "image/QVPicture.h"
#include "platform/QVError.h"
#include "platform/QuarvoCoreExport.h"

#include <functional>
#include <memory>
#include <optional>

class QVImageResources;

/// Loads pictures by address. Used on the main thread.
class QUARVO_CORE_EXPORT QVImageLoader
{
public:
    /// Receives the picture, or a null one and the error. Called on the main thread, exactly once unless the
    /// application object is destroyed before, and never before load() has returned.
    using Completion = std::function<void(QVPicture, std::optional<QVError>)>;

    QVImageLoader(const QVImageLoader &) = delete;
    QVImageLoader &operator=(const QVImageLoader &) = delete;

    [[nodiscard]] static QVImageLoader &shared();

    /// Prepares the folder on disk and the decoder of the usual format, so that the first load is faster.
    void prepare();
    /// Whether a picture is being decoded, or read from disk.
    [[nodiscard]] bool isWorking() const;
    /// Scales the picture to \a pixels, too, unless that is empty.
    void load(const QString &address, QSize pixels, Completion completion);

private:
    QVImageLoader();

    QVImageResources &resources();

    std::unique_ptr<QVImageResources> m_resources;
};
