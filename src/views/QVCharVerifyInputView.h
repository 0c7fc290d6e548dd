#pragma once

#include "layout/QVLayout.h"
#include "platform/QVDelegate.h"
#include "views/QVCharVerifyInputViewDelegate.h"

#include <QWidget>

class QVBorderedBox;
class QVCharVerifyInputViewDoneButton;
class QVCharVerifyTextField;

/// The strip below the picture with the field for the characters seen in it.
class QVCharVerifyInputView final : public QWidget
{
    Q_OBJECT

public:
    explicit QVCharVerifyInputView(QWidget *parent = nullptr);

    [[nodiscard]] QVCharVerifyInputViewDelegate *delegate() const { return m_delegate.get(); }
    void setDelegate(QVCharVerifyInputViewDelegate *delegate) { m_delegate = delegate; }
    [[nodiscard]] QVCharVerifyInputViewDoneButton *doneButton() const { return m_doneButton; }
    [[nodiscard]] QVCharVerifyTextField *inputTF() const { return m_inputTF; }
    [[nodiscard]] QVBorderedBox *tfBackView() const { return m_tfBackView; }

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void nameElements();
    void placeElements();
    [[nodiscard]] bool textFieldShouldBeginEditing() const;
    bool textFieldShouldReturn();
    void doneButtonDidClickedAction();

    QVWeakDelegate<QVCharVerifyInputViewDelegate> m_delegate;
    QVBorderedBox *m_tfBackView;
    QVCharVerifyTextField *m_inputTF;
    QVCharVerifyInputViewDoneButton *m_doneButton;
    QVLayout m_layout;
};
