#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>

class QPainter;
class QPixmap;
class QString;

/// Text and icons whose colour is too like their ground get a halo that sets them off, so that people
/// with weak sight can read them. The colours themselves are the product's and stay.
///
/// Ratios are those of the Web Content Accessibility Guidelines 2.1, level AA.
namespace QVReadable {

inline constexpr double textContrast = 4.5;
inline constexpr double iconContrast = 3.0;

/// From 1 (the same) to 21 (black and white), of two opaque colours.
[[nodiscard]] double contrast(const QColor &one, const QColor &other);

/// What sets \a color off from \a ground; invalid where nothing needs to. A ground that is not opaque
/// may lie over anything.
[[nodiscard]] QColor halo(const QColor &color, const QColor &ground, double wanted);

/// Draws a line of text with the painter's font and pen.
void drawText(QPainter &painter, QPointF baseline, const QString &line, const QColor &ground);
/// The same within \a bounds, aligned by flags of Qt::Alignment.
void drawText(QPainter &painter, const QRectF &bounds, Qt::Alignment alignment, const QString &line,
              const QColor &ground);
/// Draws a one-coloured picture.
void drawIcon(QPainter &painter, const QRectF &bounds, const QPixmap &icon, const QColor &color,
              const QColor &ground);

} // namespace QVReadable
