#pragma once

#include <QWidget>

/// The button's text. It paints itself, so that a host's style sheet for labels does not reach it.
class QVClickStatusLabel final : public QWidget
{
    Q_OBJECT

public:
    explicit QVClickStatusLabel(QWidget *parent);

    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString &text);
    /// Whether the text does not fit, so that its end is not shown.
    [[nodiscard]] bool isElided() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    /// What is painted, a line each.
    [[nodiscard]] QStringList lines() const;

    QString m_text;
};
