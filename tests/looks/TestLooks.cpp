#include "looks/LookComparison.h"
#include "looks/Looks.h"
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
        const auto row = addColumns<QSize, QString>({"size", "steps"});
        for (const Look &look : looks)
            row(look.name, look.size, q(look.steps));
    }

    void looksAsBefore()
    {
        QFETCH(QSize, size);
        QFETCH(QString, steps);
        prepareHost(size, Qt::white);
        for (const QString &step : words(steps)) {
            QCoreApplication::processEvents();
            go(step);
        }
        const QImage seen = pixelsOf(host(), m_ratio);
        if (m_pressedAt)
            QVPointerInput::release(host(), *m_pressedAt);
        QVERIFY2(LookComparison::matches(q(QTest::currentDataTag()), seen),
                 "looks different; QUARVO_UPDATE_LOOKS=1 takes the new look for the right one");
    }

    void looksAsBeforeInAStyledHost_data()
    {
        const auto row = addColumns<QSize, QString>({"size", "steps"});
        for (const Look &look : looks) {
            // No widget is told of a font when a style sheet has set its own.
            if (!q(look.steps).contains(q("font")))
                row(look.name, look.size, q(look.steps));
        }
    }

    /// A host styles its own widgets by class or all at once, and may be written from right to left; the
    /// component's look is its own.
    void looksAsBeforeInAStyledHost()
    {
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        qunsetenv("QUARVO_UPDATE_LOOKS");
        m_hostsRules = q("* { background: red; color: green; border: 3px solid blue; font: italic 30px; }"
                         "QLineEdit { padding: 8px; }");
        QApplication::setPalette(QPalette(Qt::darkGreen, Qt::black));
        looksAsBefore();
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        QCursor::setPos(host().screen()->geometry().bottomRight());
        m_ratio = 1;
        m_pressedAt.reset();
        m_offersAlternative = false;
        m_offer = q("An\noffer");
        defineSurroundings();
        defineViews();
        defineButton();
        defineDrawing();
    }

    void finish() override
    {
        ModesTestCase::finish();
        QApplication::setFont(m_usualFont);
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
        qApp->setStyleSheet(QString());
        m_hostsRules.clear();
        QApplication::setPalette(QPalette());
        m_panel.reset();
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
        addStep("font", [](const QString &size) {
            QFont font = QApplication::font();
            font.setPixelSize(size.toInt());
            QApplication::setFont(font);
        });
        addStep("alternative", [this](auto) { m_offersAlternative = true; });
        addStep("tab", [this](auto) { QTest::keyClick(&host(), Qt::Key_Tab); });
        addStep("press", [this](const QString &place) {
            m_pressedAt = QPoint(place.section(u' ', 0, 0).toInt(), place.section(u' ', 1).toInt());
            QCursor::setPos(host().mapToGlobal(*m_pressedAt));
            QCoreApplication::processEvents();
            QVPointerInput::press(host(), *m_pressedAt);
        });
    }

    void focusByKey(QWidget &widget) const
    {
        host().setAttribute(Qt::WA_KeyboardFocusChange);
        widget.setFocus(Qt::TabFocusReason);
    }

    template<class View>
    View &found() const
    {
        return *host().findChild<View *>();
    }

    /// Over the whole host, in which a layout may place it late.
    template<class View>
    View &make() const
    {
        auto *const view = new View(&host());
        view->show();
        view->setGeometry(host().rect());
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
        addStep("view", [this](auto) { make<Picture>().setImage(LookComparison::photograph()); });
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
        addStep("wide", [this](const QString &width) {
            found<Button>().resize(width.toInt(), found<Button>().height());
        });
        addStep("rounded",
                [this](const QString &radius) { found<Button>().setCornerRadius(radius.toInt()); });
        addStep("focus", [this](auto) { focusByKey(found<Button>()); });
        addStep("disable", [this](auto) { found<Button>().setEnabled(false); });
        addStep("hover", [this](const QString &name) {
            auto *const widget = name.isEmpty() ? &found<Button>() : host().findChild<QWidget *>(name);
            widget->setAttribute(Qt::WA_UnderMouse);
            widget->update();
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
            const auto points = waveAt(host().rect().center() - QPoint(100, 0), 30, 6);
            QVPointerInput::press(host(), points.front());
            for (const QPoint &point : points)
                QVPointerInput::move(host(), point);
            m_pressedAt = points.back();
        });
        addStep("focus-close", [this](auto) { focusByKey(found<QVCloseButton>()); });
        addStep("panel", [this](auto) { showPanel(); });
        addStep("long-offer", [this](auto) { m_offer = QString(900000, u'W'); });
        addStep("size", [this](const QString &size) {
            host().resize(size.section(u' ', 0, 0).toInt(), size.section(u' ', 1).toInt());
            if (m_panel)
                m_panel->embedView()->setGeometry(host().rect());
            advance(0ms);
        });
        addStep("enabled", [this](auto) { m_panel->embedView()->setEnabled(false); });
        addStep("push", [this](const QString &name) {
            host().findChild<QVTouchButton *>(name)->setHighlighted(true);
        });
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
        service().extend(q("get"), {{q("adlinkword"), m_offer}, {q("adlink"), q("https://x.example")}});
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

    const QFont m_usualFont = QApplication::font();
    QString m_hostsRules;
    qreal m_ratio = 1;
    std::optional<QPoint> m_pressedAt;
    bool m_offersAlternative = false;
    QString m_offer;
    std::unique_ptr<QVEmbedManager> m_panel;
};

QV_TEST(TestLooks)
#include "TestLooks.moc"
