#pragma once

#include "paint/QVPaintedText.h"

#include <QFont>
#include <QQuickPaintedItem>

/// A text that looks as in every front-end: it shrinks to a readable size, its lines have similar lengths,
/// and what still does not fit is cut off.
class QVQuickText : public QQuickPaintedItem
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QuarvoText)
    Q_PROPERTY(QString text MEMBER m_words NOTIFY styleChanged)
    /// The name of a picture in the resource bundle, which stands before the text.
    Q_PROPERTY(QString picture MEMBER m_picture NOTIFY styleChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY colorChanged)
    /// In logical pixels, where text has its usual size.
    Q_PROPERTY(int pixelSize MEMBER m_pixelSize NOTIFY styleChanged)
    /// Instead of the application's font at that size.
    Q_PROPERTY(QFont font MEMBER m_font NOTIFY styleChanged)
    Q_PROPERTY(bool isItalic MEMBER m_isItalic NOTIFY styleChanged)
    Q_PROPERTY(bool hasShadow MEMBER m_hasShadow NOTIFY styleChanged)
    Q_PROPERTY(int mostLines MEMBER m_mostLines NOTIFY styleChanged)
    Q_PROPERTY(Qt::Alignment alignment MEMBER m_alignment NOTIFY styleChanged)
    /// How wide the text may be. The implicit size is what it needs then.
    Q_PROPERTY(double widest MEMBER m_widest NOTIFY styleChanged)
    /// What of the implicit height the lines below the first one need.
    Q_PROPERTY(int extraHeight READ extraHeight NOTIFY extraHeightChanged)

public:
    explicit QVQuickText(QQuickItem *parent = nullptr);

    [[nodiscard]] int extraHeight() const { return m_extraHeight; }

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void styleChanged();
    void colorChanged();
    void extraHeightChanged();

protected:
    void componentComplete() override;
    void geometryChange(const QRectF &now, const QRectF &before) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void measure();
    void chooseResolution();

    QVPaintedText m_text{{}};
    QString m_words;
    QString m_picture;
    QColor m_color = Qt::white;
    QFont m_font;
    Qt::Alignment m_alignment = Qt::AlignHCenter;
    double m_widest = 1 << 20;
    int m_pixelSize = 15;
    int m_mostLines = 1;
    int m_extraHeight = 0;
    bool m_isItalic = false;
    bool m_hasShadow = false;
};
