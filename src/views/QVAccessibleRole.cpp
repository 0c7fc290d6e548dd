#include "views/QVAccessibleRole.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QVariant>

#include <mutex>

namespace {

constexpr const char *roleProperty = "_qv_accessibleRole";
constexpr const char *busyProperty = "_qv_accessibleBusy";

class RoleInterface final : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    [[nodiscard]] QAccessible::Role role() const override
    {
        const auto role = static_cast<QAccessible::Role>(widget()->property(roleProperty).toInt());
        return role == QAccessible::NoRole ? QAccessible::Client : role;
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        if (widget()->property(roleProperty).toInt() == QAccessible::NoRole)
            state.invisible = true;
        state.busy = widget()->property(busyProperty).toBool();
        state.modal = role() == QAccessible::Dialog;
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (button() && widget()->isEnabled())
            names.prepend(pressAction());
        return names;
    }

    void doAction(const QString &name) override
    {
        if (name == pressAction() && button())
            button()->click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    [[nodiscard]] QAbstractButton *button() const { return qobject_cast<QAbstractButton *>(widget()); }
};

QAccessibleInterface *interfaceFor(const QString & /*className*/, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    const bool isOurs = widget && widget->property(roleProperty).isValid();
    return isOurs ? new RoleInterface(widget) : nullptr;
}

} // namespace

void qv_setAccessibleRole(QWidget *widget, QAccessible::Role role)
{
    static std::once_flag installed;
    std::call_once(installed, [] { QAccessible::installFactory(interfaceFor); });
    widget->setProperty(roleProperty, static_cast<int>(role));
}

void qv_readOut(QWidget *widget)
{
    if (!widget->isVisible())
        return;
    // Screen readers of the Linux desktop read a notification that appears, but no alert event.
    QAccessibleEvent appears(widget, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&appears);
}

void qv_setAccessibleBusy(QWidget *widget, bool busy)
{
    if (widget->property(busyProperty).toBool() == busy)
        return;
    widget->setProperty(busyProperty, busy);
    QAccessible::State changed;
    changed.busy = true;
    QAccessibleStateChangeEvent event(widget, changed);
    QAccessible::updateAccessibility(&event);
}
