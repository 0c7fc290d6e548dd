#pragma once

#include "conversations/ConversationTestCase.h"

#include <QImage>
#include <QRect>
#include <QWindow>

/// Base of the tests of a front-end's drawing captcha: what the user does to it in its window by mouse,
/// finger and keys, and what can be seen there then.
class DrawingTestCase : public ConversationTestCase
{
    Q_OBJECT

protected:
    using Points = std::vector<QPoint>;

    void prepare() override;
    void finish() override;

    /// Carries out the current row of a table: each step is followed by the requests that it causes and by
    /// what the host then hears or "look" sees.
    void follow();

    /// The window with the picture.
    [[nodiscard]] virtual QWindow *drawingWindow() const = 0;
    /// Where a part is in the window. Empty where it cannot be seen.
    [[nodiscard]] virtual QRect frameOf(const QString &part) const = 0;
    /// The widget or item of a part. Null where there is none.
    [[nodiscard]] virtual QObject *objectOf(const QString &part) const = 0;
    /// The text of the bar that is shown.
    [[nodiscard]] virtual QString barText() const = 0;
    [[nodiscard]] virtual bool isLoading() const = 0;
    [[nodiscard]] virtual QImage screenshot() const = 0;
    virtual void setPanelEnabled(bool enabled) = 0;
    virtual void resizePanel(QSize size) = 0;
    virtual void offerAlternative() = 0;
    /// Gives the focus to the picture as the Tab key does, or to something else.
    virtual void focusPicture(bool has) = 0;

    /// \a count points on a gentle wave, \a step apart.
    [[nodiscard]] static Points waveAt(QPoint start, int count, int step);
    /// Points of a stroke, over the middle of the picture or from that of another part.
    [[nodiscard]] Points waveFrom(const QString &part, int count = 20) const;
    /// The nearest point of the window.
    [[nodiscard]] QPoint inWindow(QPoint point) const;
    void drawWithMouse(const Points &points) const;
    void drawWithFinger(const Points &points) const;
    void addReport(const QString &text) { outcomes().add(text); }

public Q_SLOTS:
    /// Hears which page is opened.
    void openPage(const QUrl &page);

private:
    void defineSettings();
    void defineAnswers();
    void defineStrokes();
    void defineClicks();
    void defineKeys();
    void defineLook();
    void drawWithTwoFingers(const QString &otherOn) const;
    void look();
};
