#pragma once

#include <QImage>
#include <QRegion>

/// Compares a look with the picture of it that is kept in the tree.
namespace LookComparison {

/// Whether \a seen looks like the picture of that \a name. If it does not, or with QUARVO_SHOW_LOOKS in the
/// environment, both and their difference are written beside the build. With QUARVO_UPDATE_LOOKS the picture
/// is written anew. Edges in \a circles need not be the same.
[[nodiscard]] bool matches(const QString &name, const QImage &seen, const QRegion &circles = {});
/// A captcha's picture.
[[nodiscard]] QImage photograph();

} // namespace LookComparison
