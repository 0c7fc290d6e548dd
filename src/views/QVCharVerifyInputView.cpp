#include "views/QVCharVerifyInputView.h"

#include "settings/QVColors.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"
#include "views/QVBorderedBox.h"
#include "views/QVCharVerifyInputViewDoneButton.h"
#include "views/QVCharVerifyTextField.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>

namespace {

constexpr int boxHeight = 30;
constexpr int boxLeft = 10;
// The free space at the right of the box. The button needs half of it.
constexpr int boxRight = 160;
constexpr int fieldInset = 5;
constexpr int buttonWidth = 80;

} // namespace

QVCharVerifyInputView::QVCharVerifyInputView(QWidget *parent)
    : QWidget(parent)
    , m_tfBackView(new QVBorderedBox(this))
    , m_inputTF(new QVCharVerifyTextField(this))
    , m_doneButton(new QVCharVerifyInputViewDoneButton(this))
    , m_layout(this)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    qv_setAccessibleRole(this, QAccessible::Grouping);
    nameElements();
    placeElements();
    m_inputTF->setShouldBeginEditing([this] { return textFieldShouldBeginEditing(); });
    m_inputTF->setShouldReturn([this] { return textFieldShouldReturn(); });
    connect(m_inputTF, &QVCharVerifyTextField::focusChanged, m_tfBackView, &QVBorderedBox::setIsEdited);
    connect(m_doneButton, &QAbstractButton::clicked, this,
            &QVCharVerifyInputView::doneButtonDidClickedAction);
}

void QVCharVerifyInputView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        m_inputTF->applyColors();
}

void QVCharVerifyInputView::nameElements()
{
    setObjectName(QStringLiteral("charInputView"));
    m_tfBackView->setObjectName(QStringLiteral("tfBackView"));
    qv_setAccessibleRole(m_tfBackView, QAccessible::NoRole);
    m_inputTF->setObjectName(QStringLiteral("inputTF"));
    m_doneButton->setObjectName(QStringLiteral("doneButton"));
    qv_followLanguage(m_inputTF, [field = m_inputTF] {
        field->setPlaceholder(qv_localizedStringForKey(QVKey::characterCaptchaHolder));
        field->setAccessibleName(qv_localizedStringForKey(QVKey::accessibleAnswer));
    });
}

void QVCharVerifyInputView::placeElements()
{
    m_layout.make(m_tfBackView, [this](QVConstraintMaker &make) {
        make.centerY().equalTo(this);
        make.left().equalTo(this).offset(boxLeft);
        make.right().equalTo(this).offset(-boxRight);
        make.height().equalTo(boxHeight);
    });
    m_layout.make(m_inputTF, [this](QVConstraintMaker &make) {
        make.centerY().equalTo(m_tfBackView);
        make.left().equalTo(m_tfBackView).offset(fieldInset);
        make.right().equalTo(m_tfBackView).offset(-fieldInset);
        make.height().equalTo(m_tfBackView);
    });
    m_layout.make(m_doneButton, [this](QVConstraintMaker &make) {
        make.centerY().equalTo(this);
        make.right().equalTo(this);
        make.height().equalTo(m_tfBackView);
        make.width().equalTo(buttonWidth);
    });
}

bool QVCharVerifyInputView::textFieldShouldBeginEditing() const
{
    if (m_doneButton->buttonStauts() == QVCharVerifyInputViewDoneButton::loadingStauts)
        return false;
    QVCharVerifyInputViewDelegate *delegate = m_delegate.get();
    return !delegate || delegate->canInput();
}

bool QVCharVerifyInputView::textFieldShouldReturn()
{
    // The return key only ends typing. It does not send the answer.
    m_inputTF->clearFocus();
    return false;
}

void QVCharVerifyInputView::doneButtonDidClickedAction()
{
    // Text that an input method is still composing belongs to the answer.
    if (QGuiApplication::focusObject() == m_inputTF)
        QGuiApplication::inputMethod()->commit();
    const QString charString = m_inputTF->text();
    if (charString.isEmpty())
        return;
    m_inputTF->clearFocus();
    QVCharVerifyInputViewDelegate *delegate = m_delegate.get();
    if (!delegate)
        return;
    const QPointer<QVCharVerifyInputView> self(this);
    delegate->charVerifyInputViewDidClickedDoneButtonWithCharString(this, charString);
    if (self)
        m_inputTF->clear();
}

void QVCharVerifyInputView::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), QVColors::strip());
}
