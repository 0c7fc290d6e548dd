#include "looks/LookComparison.h"
#include "modes/ModesTestCase.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickStatusView.h"
#include "modes/QVEmbedManager.h"
#include "popup/QVCloseButton.h"
#include "settings/QVLocalization.h"
#include "settings/QVSDKManager.h"
#include "support/QVPixels.h"
#include "support/QVPointerInput.h"
#include "views/QVCharVerifyInputView.h"
#include "views/QVCharVerifyInputViewDoneButton.h"
#include "views/QVCharVerifyTextField.h"
#include "views/QVInvisibleAnimationView.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QApplication>
#include <QPainter>

using namespace std::chrono_literals;

/// Every state of every view, as a picture beside the one that is kept in the tree.
class TestLooks : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void looksAsBefore_data()
    {
        QTest::addColumn<qsizetype>("index");
        const std::vector<Look> all = looks();
        for (std::size_t i = 0; i < all.size(); ++i)
            QTest::newRow(all[i].name) << static_cast<qsizetype>(i);
    }

    void looksAsBefore()
    {
        QFETCH(qsizetype, index);
        const QImage seen = looks().at(static_cast<std::size_t>(index)).take();
        QVERIFY2(LookComparison::matches(QString::fromLatin1(QTest::currentDataTag()), seen),
                 "looks different; QUARVO_UPDATE_LOOKS=1 takes the new look for the right one");
    }

    void looksAsBeforeInAStyledHost_data() { looksAsBefore_data(); }

    /// A host styles its own widgets by class or all at once; the component's look is its own.
    void looksAsBeforeInAStyledHost()
    {
        m_hostsRules = q("* { background: red; color: green; border: 3px solid blue; font: italic 30px; }"
                         "QLineEdit { padding: 8px; }");
        QApplication::setPalette(QPalette(Qt::darkGreen, Qt::black));
        looksAsBefore();
    }

    void everyPictureBelongsToALook()
    {
        QStringList names;
        for (const Look &look : looks())
            names.append(QString::fromLatin1(look.name));
        QStringList pictures = LookComparison::pictureNames();
        names.sort();
        pictures.sort();
        QCOMPARE(pictures, names);
    }

private:
    struct Look
    {
        const char *name;
        std::function<QImage()> take;
    };
    enum class Kind { Draw, Characters, Outage };
    using Bar = QVOverlaySurface::Bar;

    std::vector<Look> looks()
    {
        std::vector<Look> all;
        const auto add = [&all](const char *name, std::function<QImage()> take) {
            all.push_back({name, std::move(take)});
        };
        add("bar-prompt", [this] { return bar(Bar::Prompt, "drawCaptcha"); });
        add("bar-prompt-2x", [this] { return bar(Bar::Prompt, "drawCaptcha", "en", 400, 2); });
        add("bar-prompt-hant", [this] { return bar(Bar::Prompt, "drawCaptcha", "zh-Hant"); });
        add("bar-error-tappable", [this] { return bar(Bar::Error, "loadFaild"); });
        add("bar-error-passing", [this] { return bar(Bar::Error, "fail"); });
        add("bar-error-240", [this] { return bar(Bar::Error, "loadFaild", "en", 240); });
        add("bar-error-hans", [this] { return bar(Bar::Error, "loadFaild", "zh-Hans"); });
        add("bar-error-focused", [this] { return focusedBar(); });
        add("bar-success", [this] { return bar(Bar::Success, "clickPass"); });
        add("bar-half-way", [this] { return bar(Bar::Error, "fail", "en", 400, 1, 100ms); });
        add("dots-early", [this] { return dots(300ms); });
        add("dots-late", [this] { return dots(650ms); });
        add("strip-empty", [this] { return strip({}, 0); });
        add("strip-typed", [this] { return strip(q("a4K"), 0); });
        add("strip-edited", [this] { return editedStrip(); });
        add("strip-busy", [this] { return strip({}, 1); });
        add("strip-pressed", [this] { return strip(q("a4K"), 0, true); });
        add("strip-hant", [this] { return strip({}, 0, false, "zh-Hant"); });
        add("strip-contrast", [this] { return withContrast([this] { return strip({}, 0); }); });
        add("popup-contrast", [this] {
            return withContrast([this] { return popup(Kind::Draw, {320, 480}); });
        });
        add("button-normal", [this] { return button(QVClickStatusNormal, 0ms); });
        add("button-normal-2x", [this] { return button(QVClickStatusNormal, 0ms, 2); });
        add("button-touching", [this] { return button(QVClickStatusTouching, 250ms); });
        add("button-verifying", [this] { return button(QVClickStatusVerifying, 125ms); });
        add("button-filling", [this] { return button(QVClickStatusDrawing, 500ms); });
        add("button-waiting", [this] { return button(QVClickStatusDrawing, 1500ms); });
        add("button-tick-drawn", [this] { return button(QVClickStatusPassed, 250ms); });
        add("button-failed", [this] { return button(QVClickStatusFailed, 600ms); });
        add("button-focused", [this] { return focusedButton(); });
        add("button-pressed", [this] { return pressedButton(); });
        add("button-disabled", [this] { return disabledButton(); });
        add("button-of-the-host", [this] { return hostsButton(); });
        add("popup-dark", [this] { return darkPopup(); });
        add("button-hovered", [this] { return hoveredButton(); });
        add("panel-hovered", [this] { return hoveredPanel(); });
        add("badge-waiting", [this] { return badge(125ms); });
        add("badge-opening", [this] { return openedBadge(250ms); });
        add("badge-halo", [this] { return openedBadge(850ms); });
        add("popup-card", [this] { return popup(Kind::Draw, {640, 480}); });
        add("popup-card-2x", [this] { return popup(Kind::Draw, {500, 440}, "en", 2); });
        add("popup-card-dark", [this] { return popup(Kind::Draw, {640, 480}, "en", 1, Qt::black); });
        add("popup-characters-hans", [this] { return popup(Kind::Characters, {640, 480}, "zh-Hans"); });
        add("popup-phone", [this] { return popup(Kind::Draw, {320, 480}, "zh-Hant"); });
        add("popup-phone-outage", [this] { return popup(Kind::Outage, {320, 480}); });
        add("popup-unfolding", [this] { return popup(Kind::Draw, {640, 480}, "en", 1, Qt::white, 125ms); });
        add("popup-stroke", [this] { return stroked(); });
        add("popup-close-focused", [this] { return focusedClose(); });
        add("panel-controls", [this] { return panelControls(); });
        add("panel-pen", [this] { return panelPen(); });
        add("panel-pen-keys", [this] { return panelPenKeys(); });
        add("panel-failed", [this] { return panelFailed(); });
        add("panel-alternative", [this] { return panelAlternative("en", 1); });
        add("panel-alternative-hans-2x", [this] { return panelAlternative("zh-Hans", 2); });
        add("popup-alternative", [this] { return popupAlternative(Kind::Draw, {640, 480}, "en", 1); });
        add("popup-alternative-hans-2x", [this] {
            return popupAlternative(Kind::Characters, {320, 320}, "zh-Hans", 2);
        });
        add("popup-alternative-dark", [this] {
            QVSDKManager::setAppearance(QVAppearance::Dark);
            const QImage seen = withContrast([this] {
                return popupAlternative(Kind::Characters, {640, 480}, "en", 1);
            });
            QVSDKManager::setAppearance(QVAppearance::Light);
            return seen;
        });
        return all;
    }

    /// The host's window, with \a ground below whatever lies in it.
    [[nodiscard]] QImage shot(qreal ratio = 1) const { return pixelsOf(host(), ratio); }

    void prepareHost(QSize size, const QColor &ground = Qt::white)
    {
        auto window = std::make_unique<QWidget>();
        QPalette palette;
        palette.setColor(QPalette::Window, ground);
        window->setPalette(palette);
        window->setObjectName(q("host"));
        if (!m_hostsRules.isEmpty())
            qApp->setStyleSheet(m_hostsRules +
                                q("#host { background: %1; border: none; }").arg(ground.name()));
        window->resize(size);
        replaceHost(std::move(window));
    }

    static QImage photograph()
    {
        QImage image(400, 230, QImage::Format_RGB32);
        QPainter painter(&image);
        QLinearGradient sky(0, 0, 400, 230);
        sky.setColorAt(0, QColor(240, 240, 250));
        sky.setColorAt(1, QColor(40, 60, 50));
        painter.fillRect(image.rect(), sky);
        return image;
    }

    QVRenderDrawImageView &pictureView(int width, const char *language)
    {
        QVSDKManager::setPreferredLanguage(QLatin1String(language));
        prepareHost({width, width * 23 / 40});
        auto *const view = new QVRenderDrawImageView(&host());
        view->setGeometry(host().rect());
        view->setImage(photograph());
        view->show();
        return *view;
    }

    QImage bar(Bar shown, const char *key, const char *language = "en", int width = 400, qreal ratio = 1,
               std::chrono::milliseconds time = 300ms)
    {
        QVRenderDrawImageView &view = pictureView(width, language);
        const bool isTappable = QLatin1String(key) == QLatin1String("loadFaild");
        view.slideIn(shown, qv_localizedStringForKey(QLatin1String(key)), isTappable);
        advance(time);
        return shot(ratio);
    }

    QImage focusedBar()
    {
        QVRenderDrawImageView &view = pictureView(400, "en");
        view.slideIn(Bar::Error, q("No"), true);
        advance(300ms);
        focusNext();
        return shot();
    }

    QImage dots(std::chrono::milliseconds time)
    {
        QVRenderDrawImageView &view = pictureView(200, "en");
        view.setImage({});
        view.showLoadingAnimation();
        advance(time);
        return shot();
    }

    QImage strip(const QString &text, int status, bool isPressed = false, const char *language = "en")
    {
        QVSDKManager::setPreferredLanguage(QLatin1String(language));
        prepareHost({400, 40});
        auto *const view = new QVCharVerifyInputView(&host());
        view->setGeometry(host().rect());
        view->show();
        view->inputTF()->setText(text);
        view->doneButton()->setButtonStauts(status);
        view->doneButton()->setDown(isPressed);
        advance(250ms);
        return shot();
    }

    QImage editedStrip()
    {
        strip(q("a4K"), 0);
        focusNext();
        return shot();
    }

    static QImage withContrast(const std::function<QImage()> &take)
    {
        QVSDKManager::setContrast(QVContrast::High);
        const QImage seen = take();
        QVSDKManager::setContrast(QVContrast::System);
        return seen;
    }

    QVClickButton &makeButton()
    {
        auto *const made = new QVClickButton(&host());
        made->setGeometry(10, 10, 280, 44);
        made->findChild<QVClickStatusView *>()->setRandomSource([] { return 2U; });
        made->show();
        return *made;
    }

    QImage button(QVClickStatus status, std::chrono::milliseconds time, qreal ratio = 1)
    {
        prepareHost({300, 64});
        QVClickButton &made = makeButton();
        answerForStatus(int(status));
        if (status == QVClickStatusTouching)
            QVPointerInput::press(made, {100, 20});
        else if (status != QVClickStatusNormal)
            made.click();
        const bool opensPopup = status == QVClickStatusDrawing;
        if (!waitFor(
                [&] { return made.clickStatus() == status && bool(ModesTestCase::popup()) == opensPopup; }))
            return {};
        if (opensPopup)
            pressClose();
        // Counts the time from here.
        made.findChild<QVClickStatusView *>()->setClickStatus(status);
        advance(time);
        const QImage seen = shot(ratio);
        if (status == QVClickStatusTouching)
            QVPointerInput::release(made, {100, 20});
        return seen;
    }

    QImage focusedButton()
    {
        prepareHost({300, 64});
        host().setAttribute(Qt::WA_KeyboardFocusChange);
        makeButton().setFocus(Qt::TabFocusReason);
        return shot();
    }

    QImage disabledButton()
    {
        prepareHost({300, 64});
        makeButton().setEnabled(false);
        return shot();
    }

    QImage hostsButton()
    {
        prepareHost({300, 64});
        QVSDKManager::setAccentColor(QColor(110, 40, 160));
        QVClickButton &made = makeButton();
        made.setCornerRadius(12);
        QVPointerInput::press(made, {5, 5});
        advance(300ms);
        const QImage seen = shot(2);
        QVPointerInput::release(made, {5, 5});
        QVSDKManager::setAccentColor({});
        return seen;
    }

    QImage darkPopup()
    {
        QVSDKManager::setAppearance(QVAppearance::Dark);
        const QImage seen = popup(Kind::Characters, {640, 480}, "zh-Hant");
        QVSDKManager::setAppearance(QVAppearance::Light);
        return seen;
    }

    QImage hoveredButton()
    {
        prepareHost({300, 64});
        makeButton().setAttribute(Qt::WA_UnderMouse);
        return shot();
    }

    QImage hoveredPanel()
    {
        showPanel();
        for (const char *name : {"helpButton", "adButton"})
            host().findChild<QWidget *>(QLatin1String(name))->setAttribute(Qt::WA_UnderMouse);
        return shot();
    }

    QImage pressedButton()
    {
        prepareHost({300, 64});
        QVClickButton &made = makeButton();
        QVPointerInput::press(made, {100, 20});
        advance(150ms);
        const QImage seen = shot();
        QVPointerInput::release(made, {100, 20});
        return seen;
    }

    QVInvisibleAnimationView &makeBadge()
    {
        prepareHost({240, 120}, QColor(90, 100, 110));
        auto *const made = new QVInvisibleAnimationView(&host());
        made->setFrame({20, 20, 80, 80});
        made->setRandomSource([] { return 10U; });
        made->show();
        return *made;
    }

    QImage badge(std::chrono::milliseconds time)
    {
        makeBadge().startLoadingAnimation();
        advance(time);
        return shot();
    }

    QImage openedBadge(std::chrono::milliseconds time)
    {
        makeBadge().passAnimationComplete();
        advance(time);
        return shot();
    }

    void openPopup(Kind kind, QSize size, const char *language, const QColor &ground)
    {
        QVSDKManager::setPreferredLanguage(QLatin1String(language));
        prepareHost(size, ground);
        if (kind == Kind::Outage)
            service().answer(outageSwitch, {{q("active"), true}});
        if (kind == Kind::Characters)
            service().extend(config, {{q("type"), q("character")}});
        QVClickButton &made = makeButton();
        if (m_offersAlternative)
            connect(&made, &QVClickButton::alternativeRequested, &made, [] {});
        made.click();
        QVERIFY(waitForPicture());
    }

    QImage popupAlternative(Kind kind, QSize size, const char *language, qreal ratio)
    {
        m_offersAlternative = true;
        return popup(kind, size, language, ratio);
    }

    QImage panelAlternative(const char *language, qreal ratio)
    {
        QVSDKManager::setPreferredLanguage(QLatin1String(language));
        m_offersAlternative = true;
        showPanel({320, 246});
        return shot(ratio);
    }

    QImage popup(Kind kind, QSize size, const char *language = "en", qreal ratio = 1,
                 const QColor &ground = Qt::white, std::chrono::milliseconds time = 2s)
    {
        openPopup(kind, size, language, ground);
        advance(time);
        return shot(ratio);
    }

    QImage stroked()
    {
        openPopup(Kind::Draw, {320, 480}, "en", Qt::white);
        advance(1s);
        const QPoint start = host().rect().center() - QPoint(100, 0);
        const auto points = QVPointerInput::wave(start, 30);
        QVPointerInput::press(host(), start);
        for (const QPoint &point : points)
            QVPointerInput::move(host(), point);
        const QImage seen = shot();
        QVPointerInput::release(host(), points.back());
        return seen;
    }

    QImage focusedClose()
    {
        openPopup(Kind::Draw, {320, 480}, "en", Qt::white);
        advance(1s);
        host().setAttribute(Qt::WA_KeyboardFocusChange);
        host().findChild<QVCloseButton *>()->setFocus(Qt::TabFocusReason);
        return shot();
    }

    void showPanel(QSize size = {414, 300})
    {
        prepareHost(size);
        service().extend(config, {{q("guide"), true}});
        service().extend(q("get"), {{q("adlinkword"), q("An offer")}, {q("adlink"), q("https://x.example")}});
        m_panel = std::make_unique<QVEmbedManager>();
        if (m_offersAlternative)
            connect(m_panel.get(), &QVEmbedManager::alternativeRequested, this, [] {});
        m_panel->embedView()->setParent(&host());
        m_panel->embedView()->setGeometry(host().rect());
        m_panel->embedView()->show();
        advance(100ms);
        QVERIFY(waitFor([this] { return host().findChild<QVRenderDrawImageView *>()->hasImage(); }));
        advance(300ms);
    }

    QImage panelControls()
    {
        showPanel();
        host().findChild<QAbstractButton *>(q("helpButton"))->setDown(true);
        for (int i = 0; i < 2; ++i)
            focusNext();
        return shot();
    }

    QImage panelPen()
    {
        showPanel();
        focusNext();
        QTest::keyClick(host().focusWidget(), Qt::Key_Space);
        for (int i = 0; i < 8; ++i)
            QTest::keyClick(host().focusWidget(), Qt::Key_Right);
        return shot();
    }

    QImage panelPenKeys()
    {
        showPanel();
        focusNext();
        return shot();
    }

    QImage panelFailed()
    {
        answerCode(refresh, q("0105"));
        showPanel();
        host().findChild<QAbstractButton *>(q("refreshButton"))->click();
        const auto *bar = host().findChild<QVRenderDrawOverlayView *>(q("errorOverlayView"));
        if (!waitFor([&] { return bar->isOnScreen(); }))
            return {};
        advance(300ms);
        return shot();
    }

    void focusNext() { QTest::keyClick(&host(), Qt::Key_Tab); }

    void finish() override
    {
        qApp->setStyleSheet(QString());
        m_hostsRules.clear();
        QApplication::setPalette(QPalette());
        m_panel.reset();
        m_offersAlternative = false;
        ModesTestCase::finish();
    }

    std::unique_ptr<QVEmbedManager> m_panel;
    QString m_hostsRules;
    bool m_offersAlternative = false;
};

QV_TEST(TestLooks)
#include "TestLooks.moc"
