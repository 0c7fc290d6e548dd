#pragma once

#include <QEvent>
#include <QJsonObject>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>

#include <functional>
#include <vector>

/// The window of both kinds of host: a button, and room for whatever is placed below it.
class HostWindow : public QWidget
{
public:
    static constexpr QSize panelSize{400, 270};
    /// What the button asks a layout for.
    static constexpr QSize buttonSize{300, 44};

    HostWindow();

    /// Adds \a content at that size.
    void place(QWidget *content, QSize size);
    /// Runs \a action when the next repaint is through.
    void afterPaint(std::function<void()> action);
    /// When repaints were through, from now on.
    [[nodiscard]] std::vector<double> &paints() { return m_paints; }

protected:
    bool event(QEvent *event) override;

private:
    QVBoxLayout m_layout;
    QPushButton m_button;
    std::function<void()> m_afterPaint;
    std::vector<double> m_paints;
};

/// Sends a mouse event to \a widget at \a position, as a window system would.
void sendMouse(QWidget &widget, QEvent::Type type, QPointF position);
/// The cost in microseconds of the moves near the 10th and the 500th point of a line that runs to and fro
/// over \a widget, each with its repaint.
[[nodiscard]] QJsonObject strokeCosts(QWidget &widget);

/// Makes the application, whose platform says nothing of itself, and runs \a host.
[[nodiscard]] int runApplication(int argc, char *argv[], const std::function<int(const QString &mode)> &host);

/// Prints \a result as one line, the memory now in use added, and ends the program.
void finishHost(QJsonObject result);
/// Does so once the program has settled.
void finishHostLater(const QJsonObject &result);
/// The sandbox's addresses, given as the program's second argument.
[[nodiscard]] QJsonObject hostAddresses();
