#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QCursor>
#include <QPixmap>
#include <QString>

#include <memory>

class QVBundle;

/// The resource bundle. Throws QVInternalConsistencyError if there is none.
[[nodiscard]] std::shared_ptr<const QVBundle> qv_bundle();

/// A picture of the host's bundle or of the resource bundle, in the size made for the application's pixel
/// ratio. Null if there is no such picture or no bundle. A name without an extension means a PNG.
[[nodiscard]] QUARVO_CORE_EXPORT QPixmap qv_imageFromBundleWithName(const QString &name);
/// The same for a given pixel ratio.
[[nodiscard]] QPixmap qv_imageFromBundleWithName(const QString &name, qreal devicePixelRatio);
/// The shape of the pointer over a picture that can be drawn on.
[[nodiscard]] QUARVO_CORE_EXPORT QCursor qv_penCursor();
