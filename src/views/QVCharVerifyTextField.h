#pragma once

#include "paint/QVPaintedText.h"

#include <QLineEdit>

#include <functional>

/// The field for the typed answer. Callbacks decide whether the user may begin to type, and whether the
/// return key works. A host's style sheet has no effect on it.
class QVCharVerifyTextField final : public QLineEdit
{
    Q_OBJECT

public:
    using Question = std::function<bool()>;

    explicit QVCharVerifyTextField(QWidget *parent = nullptr);

    /// \a question is called when editing is about to begin, and returns whether it may.
    void setShouldBeginEditing(Question question) { m_shouldBeginEditing = std::move(question); }
    /// \a question returns whether the return key has its usual effect.
    void setShouldReturn(Question question) { m_shouldReturn = std::move(question); }
    /// Shown while the field is empty. Not QLineEdit::placeholderText(), which has the font of the text.
    [[nodiscard]] const QString &placeholder() const { return m_placeholder.text(); }
    void setPlaceholder(const QString &text);
    [[nodiscard]] bool isEditing() const;
    /// Uses the colours that the palette and the host's settings ask for now. The parent calls this when the
    /// palette has changed: Qt does not notify a widget whose style sheet sets all colours.
    void applyColors();

    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

Q_SIGNALS:
    void focusChanged(bool hasFocus);

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] bool mayBegin() const { return !m_shouldBeginEditing || m_shouldBeginEditing(); }
    void levelLine(const QString &composed);
    void refuseFocus(Qt::FocusReason reason);

    Question m_shouldBeginEditing;
    Question m_shouldReturn;
    QVPaintedText m_placeholder;
    bool m_isComposing = false;
    bool m_hasAsked = false;
    bool m_wasEditing = false;
};
