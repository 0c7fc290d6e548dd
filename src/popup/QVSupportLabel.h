#pragma once

#include <QWidget>

/// The small line in the popup's bottom right corner. It paints itself, so that a host's style sheet
/// for labels does not reach it.
class QVSupportLabel final : public QWidget
{
    Q_OBJECT

public:
    explicit QVSupportLabel(QWidget *parent);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_text;
};
