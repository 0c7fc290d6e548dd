#pragma once

#include "conversations/DrawingTestCase.h"
#include "flow/QVVerifyStyle.h"
#include "modes/Outcomes.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickManager.h"
#include "modes/QVEmbedManager.h"
#include "modes/QVInvisibleManager.h"

#include <QWidget>
#include <QWindow>

class QVRenderDrawView;
class QVWindow;

/// Base of the tests of the modes. It owns the window of a host and the managers.
class ModesTestCase : public DrawingTestCase
{
    Q_OBJECT

protected:
    void prepare() override;
    void finish() override;

    void setMode(const QString &name) override;

    /// Created at the first call, with the button on the host.
    QVClickManager &clickManager();
    /// Created at the first call, without a badge.
    QVInvisibleManager &invisibleManager();
    /// Created at the first call, with the panel on the host.
    QVEmbedManager &embedManager();
    /// Calls \a action with the manager of the current mode.
    template<class Action>
    void withManager(const Action &action)
    {
        if (m_mode == QVVerifyStyleEmbed)
            action(embedManager());
        else if (m_mode == QVVerifyStylePopup)
            action(clickManager());
        else
            action(invisibleManager());
    }
    /// The signals and delegate calls of the managers.
    [[nodiscard]] Outcomes &outcomes() override { return *m_outcomes; }
    void start() override;
    /// Sets the current mode and starts.
    void start(QVVerifyStyle style);
    void reset() override;
    void destroy() override;
    void destroyAll() override;
    void showBadge() override { invisibleManager().setAnimation(true); }
    [[nodiscard]] bool hasDelegates() const override { return true; }
    /// Only the delegate of invisible mode is called for failures.
    void checkDelegates(const QStringList &expected) override;
    [[nodiscard]] QString statusText() override { return clickManager().button()->statusText(); }

    [[nodiscard]] QWidget &host() const { return *m_host; }
    void replaceHost(std::unique_ptr<QWidget> host);
    void destroyHost() { m_host.reset(); }
    static void showActive(QWidget &window);

    /// The visible popup, on any window. Null if there is none.
    [[nodiscard]] static QVWindow *popup();
    /// The number of popups, with hidden ones.
    [[nodiscard]] qsizetype popupCount() const override;
    [[nodiscard]] QStringList badges() const override;
    /// The drawing view of the popup. If there is no popup, that of the panel.
    [[nodiscard]] static QVRenderDrawView *drawView();
    /// A child of the drawing view by its object name. Null if there is no drawing view.
    [[nodiscard]] static QWidget *part(const char *name);
    void clickPart(const char *name) const override;
    [[nodiscard]] bool waitForPicture() const override;
    void stroke() const override { drawWithMouse(waveFrom({}, 14)); }
    void strokeAndVerify() const;
    void pressPicture() const override;
    void pressClose() const override;
    void changeWindow(const QString &what) override;
    [[nodiscard]] QWindow *drawingWindow() const override;
    [[nodiscard]] QRect frameOf(const QString &name) const override;
    [[nodiscard]] QObject *objectOf(const QString &name) const override;
    [[nodiscard]] QString barText() const override;
    [[nodiscard]] bool isLoading() const override;
    [[nodiscard]] QImage screenshot() const override;
    void setPanelEnabled(bool enabled) override { embedManager().embedView()->setEnabled(enabled); }
    void resizePanel(QSize size) override { embedManager().embedView()->resize(size); }
    void offerAlternative() override;
    void focusPicture(bool has) override;

private:
    void defineSteps();
    void checkThatAllIsPainted() const;
    void showForeignHost();
    void changeHost();

    QVVerifyStyle m_mode = QVVerifyStylePopup;
    std::unique_ptr<QWidget> m_host;
    std::unique_ptr<QWidget> m_otherHost;
    /// A window that is no widget, like those of Qt Quick.
    std::unique_ptr<QWindow> m_foreignHost;
    std::unique_ptr<Outcomes> m_outcomes;
    std::unique_ptr<QWidget> m_dialog;
    std::unique_ptr<QVClickManager> m_click;
    std::unique_ptr<QVInvisibleManager> m_invisible;
    std::unique_ptr<QVEmbedManager> m_embed;
};
