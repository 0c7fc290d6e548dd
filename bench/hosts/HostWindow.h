#pragma once

#include <QJsonObject>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>

#include <functional>

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

protected:
    bool event(QEvent *event) override;

private:
    QVBoxLayout m_layout;
    QPushButton m_button;
    std::function<void()> m_afterPaint;
};

/// Prints \a result as one line, the memory now in use added, and ends the program.
void finishHost(QJsonObject result);
/// Does so once the program has settled.
void finishHostLater(const QJsonObject &result);
/// The sandbox's addresses, given as the program's second argument.
[[nodiscard]] QJsonObject hostAddresses();
