#pragma once

#include "paint/QVPaintedText.h"
#include "views/QVTouchButton.h"

/// The advertisement in the picture's top left corner.
class QVAdButton final : public QVTouchButton
{
public:
    explicit QVAdButton(QWidget *parent);

    /// Shows \a word, and takes the size that it needs, up to a limit. \a link is stored, but not shown.
    void setWord(const QString &word, const QString &link);
    [[nodiscard]] QString link() const { return m_link; }

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void nameWord();
    void fitWord();

    // Not QAbstractButton::text(), in which an ampersand would define a shortcut.
    QVPaintedText m_word{{.pixelSize = 12}};
    QString m_link;
};
