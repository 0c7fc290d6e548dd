#pragma once

class QObject;
class QWidget;

/// The window that shows \a widget. For a widget in a graphics scene, that is the window of the view.
[[nodiscard]] QWidget *qv_hostOf(QWidget *widget);

/// The host for a popup or badge that is shown now: the active window; otherwise a window of another toolkit
/// (Qt Quick) with the focus; otherwise any visible window of either kind. It is a QWidget or a QWindow, or
/// null if there is none.
[[nodiscard]] QObject *qv_activeHost();
