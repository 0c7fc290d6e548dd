#include <QWidget>

/// The smallest library that contains a widget.
class Q_DECL_EXPORT EmptyWidget : public QWidget
{
    Q_OBJECT
};

#include "EmptyWidget.moc"
