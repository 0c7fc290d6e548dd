#include "looks/LookComparison.h"
#include "modes/ModesTestCase.h"
#include "modes/QVClickStatusView.h"
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
        addColumns<QSize, QString>({"size", "steps"});
        m_names.clear();
        addViews();
        addButtons();
        addPopups();
        addPanels();
    }

    void looksAsBefore()
    {
        QFETCH(QSize, size);
        QFETCH(QString, steps);
        prepareHost(size, Qt::white);
        go(steps);
        const QImage seen = pixelsOf(host(), m_ratio);
        if (m_pressedAt)
            QVPointerInput::release(host(), *m_pressedAt);
        QVERIFY2(LookComparison::matches(q(QTest::currentDataTag()), seen),
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
        QStringList pictures = LookComparison::pictureNames();
        m_names.sort();
        pictures.sort();
        QCOMPARE(pictures, m_names);
    }

private:
    void row(const char *name, QSize size, const char *steps)
    {
        m_names.append(q(name));
        QTest::newRow(name) << size << q(steps);
    }

    void addViews()
    {
        const QSize wide(400, 230);
        row("bar-prompt", wide, "view, bar prompt drawCaptcha, rest 300");
        row("bar-prompt-2x", wide, "view, bar prompt drawCaptcha, rest 300, ratio 2");
        row("bar-prompt-hant", wide, "language zh-Hant, view, bar prompt drawCaptcha, rest 300");
        row("bar-error-tappable", wide, "view, bar error loadFaild, rest 300");
        row("bar-error-passing", wide, "view, bar error fail, rest 300");
        row("bar-error-240", {240, 138}, "view, bar error loadFaild, rest 300");
        row("bar-error-hans", wide, "language zh-Hans, view, bar error loadFaild, rest 300");
        row("bar-error-focused", wide, "view, bar error No, rest 300, tab");
        row("bar-success", wide, "view, bar success clickPass, rest 300");
        row("bar-half-way", wide, "view, bar error fail, rest 100");
        row("dots-early", {200, 115}, "view, dots, rest 300");
        row("dots-late", {200, 115}, "view, dots, rest 650");
        const QSize strip(400, 40);
        row("strip-empty", strip, "strip, rest 250");
        row("strip-typed", strip, "strip, type a4K, rest 250");
        row("strip-edited", strip, "strip, type a4K, rest 250, tab");
        row("strip-busy", strip, "strip, busy, rest 250");
        row("strip-pressed", strip, "strip, type a4K, down, rest 250");
        row("strip-hant", strip, "language zh-Hant, strip, rest 250");
        row("strip-contrast", strip, "contrast, strip, rest 250");
        const QSize dimmed(240, 120);
        row("badge-waiting", dimmed, "ground #5a646e, turning, rest 125");
        row("badge-opening", dimmed, "ground #5a646e, opening, rest 250");
        row("badge-halo", dimmed, "ground #5a646e, opening, rest 850");
    }

    void addButtons()
    {
        const QSize size(300, 64);
        row("button-normal", size, "button");
        row("button-normal-2x", size, "button, ratio 2");
        row("button-touching", size, "button, press 110 30, rest 250");
        row("button-pressed", size, "button, press 110 30, rest 150");
        row("button-verifying", size, "button, status 2, rest 125");
        row("button-filling", size, "button, status 3, rest 500");
        row("button-waiting", size, "button, status 3, rest 1500");
        row("button-tick-drawn", size, "button, status 4, rest 250");
        row("button-failed", size, "button, status 5, rest 600");
        row("button-focused", size, "button, focus");
        row("button-disabled", size, "button, disable");
        row("button-hovered", size, "button, hover");
        row("button-of-the-host", size, "accent, button, rounded 12, press 15 15, rest 300, ratio 2");
    }

    void addPopups()
    {
        const QSize card(640, 480);
        const QSize phone(320, 480);
        row("popup-card", card, "button, tap, rest 2000");
        row("popup-card-2x", {500, 440}, "button, tap, rest 2000, ratio 2");
        row("popup-card-dark", card, "ground black, button, tap, rest 2000");
        row("popup-characters-hans", card, "language zh-Hans, characters, button, tap, rest 2000");
        row("popup-dark", card, "dark, language zh-Hant, characters, button, tap, rest 2000");
        row("popup-contrast", phone, "contrast, button, tap, rest 2000");
        row("popup-phone", phone, "language zh-Hant, button, tap, rest 2000");
        row("popup-phone-outage", phone, "outage, button, tap, rest 2000");
        row("popup-unfolding", card, "button, tap, rest 125");
        row("popup-stroke", phone, "button, tap, rest 1000, draw");
        row("popup-close-focused", phone, "button, tap, rest 1000, focus-close");
        row("popup-alternative", card, "alternative, button, tap, rest 2000");
        row("popup-alternative-hans-2x", {320, 320},
            "alternative, language zh-Hans, characters, button, tap, rest 2000, ratio 2");
        row("popup-alternative-dark", card,
            "alternative, dark, contrast, characters, button, tap, rest 2000");
    }

    void addPanels()
    {
        const QSize size(414, 300);
        row("panel-controls", size, "panel, push helpButton, tab, tab");
        row("panel-hovered", size, "panel, hover helpButton, hover adButton");
        row("panel-pen-keys", size, "panel, tab");
        row("panel-pen", size, "panel, tab, pen");
        row("panel-failed", size, "answer refresh 0105, panel, refresh, rest 300");
        row("panel-alternative", {320, 246}, "alternative, panel");
        row("panel-alternative-hans-2x", {320, 246}, "alternative, language zh-Hans, panel, ratio 2");
    }

    void prepare() override
    {
        ModesTestCase::prepare();
        m_ratio = 1;
        m_pressedAt.reset();
        m_offersAlternative = false;
        defineSurroundings();
        defineViews();
        defineButton();
        defineDrawing();
    }

    void finish() override
    {
        qApp->setStyleSheet(QString());
        m_hostsRules.clear();
        QApplication::setPalette(QPalette());
        QVSDKManager::setContrast(QVContrast::System);
        QVSDKManager::setAppearance(QVAppearance::Light);
        QVSDKManager::setAccentColor({});
        m_panel.reset();
        ModesTestCase::finish();
    }

    void prepareHost(QSize size, const QColor &ground)
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

    void defineSurroundings()
    {
        addStep("ground", [this](const QString &color) { prepareHost(host().size(), QColor(color)); });
        addStep("ratio", [this](const QString &ratio) { m_ratio = ratio.toDouble(); });
        addStep("rest", [this](const QString &time) { advance(1ms * time.toInt()); });
        addStep("language", [](const QString &name) { QVSDKManager::setPreferredLanguage(name); });
        addStep("contrast", [](auto) { QVSDKManager::setContrast(QVContrast::High); });
        addStep("dark", [](auto) { QVSDKManager::setAppearance(QVAppearance::Dark); });
        addStep("accent", [](auto) { QVSDKManager::setAccentColor(QColor(110, 40, 160)); });
        addStep("alternative", [this](auto) { m_offersAlternative = true; });
        addStep("tab", [this](auto) { QTest::keyClick(&host(), Qt::Key_Tab); });
        addStep("press", [this](const QString &place) {
            m_pressedAt = QPoint(place.section(u' ', 0, 0).toInt(), place.section(u' ', 1).toInt());
            QVPointerInput::press(host(), *m_pressedAt);
        });
    }

    void focusByKey(QWidget &widget) const
    {
        host().setAttribute(Qt::WA_KeyboardFocusChange);
        widget.setFocus(Qt::TabFocusReason);
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

    template<class View>
    View &found() const
    {
        return *host().findChild<View *>();
    }

    /// Over the whole host.
    template<class View>
    View &make() const
    {
        auto *const view = new View(&host());
        view->setGeometry(host().rect());
        view->show();
        return *view;
    }

    QVInvisibleAnimationView &makeBadge() const
    {
        auto &badge = make<QVInvisibleAnimationView>();
        badge.setFrame({20, 20, 80, 80});
        badge.setRandomSource([] { return 10U; });
        return badge;
    }

    void defineViews()
    {
        using Picture = QVRenderDrawImageView;
        addStep("view", [this](auto) { make<Picture>().setImage(photograph()); });
        addStep("bar", [this](const QString &text) {
            const QString key = text.section(u' ', 1);
            const bool isTappable = key == q("loadFaild") || key == q("No");
            const auto bar = words("prompt, error, success").indexOf(text.section(u' ', 0, 0));
            found<Picture>().slideIn(QVOverlaySurface::Bar(bar),
                                     key == q("No") ? key : qv_localizedStringForKey(key), isTappable);
        });
        addStep("dots", [this](auto) {
            found<Picture>().setImage({});
            found<Picture>().showLoadingAnimation();
        });
        using Strip = QVCharVerifyInputView;
        addStep("strip", [this](auto) { make<Strip>(); });
        addStep("type", [this](const QString &text) { found<Strip>().inputTF()->setText(text); });
        addStep("busy", [this](auto) { found<Strip>().doneButton()->setButtonStauts(1); });
        addStep("down", [this](auto) { found<Strip>().doneButton()->setDown(true); });
        addStep("turning", [this](auto) { makeBadge().startLoadingAnimation(); });
        addStep("opening", [this](auto) { makeBadge().passAnimationComplete(); });
    }

    void defineButton()
    {
        using Button = QVClickButton;
        addStep("button", [this](auto) {
            auto &button = make<Button>();
            button.setGeometry(10, 10, 280, 44);
            found<QVClickStatusView>().setRandomSource([] { return 2U; });
            if (m_offersAlternative)
                connect(&button, &Button::alternativeRequested, &button, [] {});
        });
        addStep("rounded",
                [this](const QString &radius) { found<Button>().setCornerRadius(radius.toInt()); });
        addStep("focus", [this](auto) { focusByKey(found<Button>()); });
        addStep("disable", [this](auto) { found<Button>().setEnabled(false); });
        addStep("hover", [this](const QString &name) {
            auto *const widget = name.isEmpty() ? &found<Button>() : host().findChild<QWidget *>(name);
            widget->setAttribute(Qt::WA_UnderMouse);
        });
        addStep("status", [this](const QString &text) {
            const int status = text.toInt();
            const bool opensPopup = status == QVClickStatusDrawing;
            answerForStatus(status);
            found<Button>().click();
            QVERIFY(waitFor(
                [&] { return int(found<Button>().clickStatus()) == status && bool(popup()) == opensPopup; }));
            if (opensPopup)
                pressClose();
            // Counts the time from here.
            found<QVClickStatusView>().setClickStatus(QVClickStatus(status));
        });
        addStep("tap", [this](auto) {
            found<Button>().click();
            QVERIFY(waitForPicture());
        });
    }

    void defineDrawing()
    {
        addStep("draw", [this](auto) {
            const auto points = QVPointerInput::wave(host().rect().center() - QPoint(100, 0), 30);
            QVPointerInput::press(host(), points.front());
            for (const QPoint &point : points)
                QVPointerInput::move(host(), point);
            m_pressedAt = points.back();
        });
        addStep("focus-close", [this](auto) { focusByKey(found<QVCloseButton>()); });
        addStep("panel", [this](auto) { showPanel(); });
        addStep("push",
                [this](const QString &name) { host().findChild<QAbstractButton *>(name)->setDown(true); });
        addStep("pen", [this](auto) {
            QTest::keyClick(host().focusWidget(), Qt::Key_Space);
            for (int i = 0; i < 8; ++i)
                QTest::keyClick(host().focusWidget(), Qt::Key_Right);
        });
        addStep("refresh", [this](auto) {
            host().findChild<QAbstractButton *>(q("refreshButton"))->click();
            const auto *bar = host().findChild<QVRenderDrawOverlayView *>(q("errorOverlayView"));
            QVERIFY(waitFor([&] { return bar->isOnScreen(); }));
        });
    }

    void showPanel()
    {
        service().extend(config, {{q("guide"), true}});
        service().extend(q("get"), {{q("adlinkword"), q("An offer")}, {q("adlink"), q("https://x.example")}});
        m_panel = std::make_unique<QVEmbedManager>();
        if (m_offersAlternative)
            connect(m_panel.get(), &QVEmbedManager::alternativeRequested, this, [] {});
        m_panel->embedView()->setParent(&host());
        m_panel->embedView()->setGeometry(host().rect());
        m_panel->embedView()->show();
        advance(100ms);
        QVERIFY(waitFor([this] { return found<QVRenderDrawImageView>().hasImage(); }));
        advance(300ms);
    }

    QStringList m_names;
    QString m_hostsRules;
    qreal m_ratio = 1;
    std::optional<QPoint> m_pressedAt;
    bool m_offersAlternative = false;
    std::unique_ptr<QVEmbedManager> m_panel;
};

QV_TEST(TestLooks)
#include "TestLooks.moc"
