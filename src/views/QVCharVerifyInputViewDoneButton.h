#pragma once

#include "layout/QVLayout.h"
#include "views/QVPaintedText.h"
#include "views/QVTouchButton.h"

class QVActivitySpinner;

/// Sends the typed answer. It turns into a spinner while the answer is checked.
class QVCharVerifyInputViewDoneButton final : public QVTouchButton
{
    Q_OBJECT

public:
    static constexpr int normalStauts = 0;
    static constexpr int loadingStauts = 1;

    explicit QVCharVerifyInputViewDoneButton(QWidget *parent = nullptr);

    [[nodiscard]] int buttonStauts() const { return m_buttonStauts; }
    /// Any status but normal and loading stops the spinner and leaves the title alone.
    void setButtonStauts(int status);
    [[nodiscard]] const QString &title() const { return m_title.text(); }
    [[nodiscard]] QVActivitySpinner *indicatorView() const { return m_indicatorView; }

protected:
    /// While loading no point is inside.
    [[nodiscard]] bool hitButton(const QPoint &point) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int m_buttonStauts = 0;
    QVPaintedText m_title{{.pixelSize = 15}};
    QVActivitySpinner *m_indicatorView;
    QVLayout m_layout;
};
