#include <QWidget>

/// The least that a library of widgets can hold.
class Q_DECL_EXPORT EmptyWidget : public QWidget
{
    Q_OBJECT
};

#include "EmptyWidget.moc"
