#pragma once

#include <QEvent>
#include <QJsonObject>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>

#include <functional>
#include <vector>

/// The window of both kinds of host: a button, and widgets below it.
class HostWindow : public QWidget
{
public:
    static constexpr QSize panelSize{400, 270};
    /// The size hint of the button.
    static constexpr QSize buttonSize{300, 44};

    HostWindow();

    /// Adds \a content with the fixed size \a size.
    void place(QWidget *content, QSize size);
    /// Runs \a action once the next repaint has finished.
    void afterPaint(std::function<void()> action);
    /// The times at which repaints have finished.
    [[nodiscard]] std::vector<double> &paints() { return m_paints; }

protected:
    bool event(QEvent *event) override;

private:
    QVBoxLayout m_layout;
    QPushButton m_button;
    std::function<void()> m_afterPaint;
    std::vector<double> m_paints;
};

/// Sends a mouse event at \a position of \a widget, like one of the window system.
void sendMouse(QWidget &widget, QEvent::Type type, QPointF position);
/// The costs of the mouse moves near the 10th and the 500th point of a line over \a widget, in microseconds,
/// including their repaints.
[[nodiscard]] QJsonObject strokeCosts(QWidget &widget);

/// Creates the application object, without messages of the platform, and runs \a host, for three minutes at
/// most.
[[nodiscard]] int runApplication(int argc, char *argv[], const std::function<int(const QString &mode)> &host);

/// Prints \a figures as one line. The program then waits for its end.
void tell(const QJsonObject &figures);
/// Does the same after a pause, in which the program comes to rest.
void tellLater(const QJsonObject &figures);
/// The address of the sandbox, from the program's second argument.
[[nodiscard]] QString serviceAddress();
