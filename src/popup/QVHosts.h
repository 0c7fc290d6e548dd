#pragma once

class QObject;
class QWidget;

/// The window that \a widget is seen in. For one that is embedded in a graphics scene, that is the
/// window of the view.
[[nodiscard]] QWidget *qv_hostOf(QWidget *widget);

/// The window that something shown now belongs to: the active window, else one of another toolkit
/// (Qt Quick's) that has the focus, else any visible one of either; null where there is none. A QWidget
/// or a QWindow.
[[nodiscard]] QObject *qv_activeHost();
