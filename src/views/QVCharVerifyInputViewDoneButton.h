#pragma once

#include "layout/QVLayout.h"
#include "paint/QVPaintedText.h"
#include "views/QVTouchButton.h"

class QVActivitySpinner;

/// The button that sends the typed answer. It shows a spinner while the answer is checked.
class QVCharVerifyInputViewDoneButton final : public QVTouchButton
{
    Q_OBJECT

public:
    static constexpr int normalStauts = 0;
    static constexpr int loadingStauts = 1;

    explicit QVCharVerifyInputViewDoneButton(QWidget *parent = nullptr);

    [[nodiscard]] int buttonStauts() const { return m_buttonStauts; }
    /// Any status except normal and loading stops the spinner and does not change the title.
    void setButtonStauts(int status);
    [[nodiscard]] const QString &title() const { return m_title.text(); }
    [[nodiscard]] QVActivitySpinner *indicatorView() const { return m_indicatorView; }

protected:
    /// False for all points while loading.
    [[nodiscard]] bool hitButton(const QPoint &point) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int m_buttonStauts = 0;
    QVPaintedText m_title{{.pixelSize = 15}};
    QVActivitySpinner *m_indicatorView;
    QVLayout m_layout;
};
