#include "draw/DrawTestCase.h"
#include "draw/QVAdButton.h"
#include "draw/QVRenderDrawView.h"
#include "draw/QVRenderStrokeView.h"
#include "views/QVCustomActionButton.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVSystemFont.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPaintEvent>
#include <QUrl>

using namespace std::chrono_literals;

namespace {

/// Keeps what of a widget had to be painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget &widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }

    QRegion painted;
};

} // namespace

/// What the view is made of, where its parts are, and how they take input.
class TestDrawView : public DrawTestCase
{
    Q_OBJECT

public Q_SLOTS:
    void take(const QUrl &url) { m_opened.append(url.toString()); }

private Q_SLOTS:
    void placesItsParts_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("isCharacters");
        QTest::addColumn<QRect>("content");
        QTest::addColumn<QRect>("image");
        QTest::newRow("popup 320, drawing")
            << 1 << QSize(320, 480) << false << QRect(0, 148, 320, 184) << QRect(0, 148, 320, 184);
        QTest::newRow("popup 320, characters")
            << 1 << QSize(320, 480) << true << QRect(0, 132, 320, 216) << QRect(0, 132, 320, 184);
        QTest::newRow("popup 414") << 1 << QSize(414, 520) << false << QRect(0, 141, 414, 238)
                                   << QRect(0, 141, 414, 238);
        QTest::newRow("popup 1280, drawing")
            << 2 << QSize(1280, 800) << false << QRect(433, 281, 414, 238) << QRect(433, 281, 414, 238);
        QTest::newRow("embedded 320, drawing")
            << 0 << QSize(320, 216) << false << QRect(0, 16, 320, 184) << QRect(0, 16, 320, 184);
        QTest::newRow("embedded 400, characters")
            << 0 << QSize(400, 270) << true << QRect(0, 0, 400, 270) << QRect(0, 0, 400, 230);
        QTest::newRow("embedded 1280")
            << 0 << QSize(1280, 800) << false << QRect(0, 32, 1280, 736) << QRect(0, 32, 1280, 736);
    }

    void placesItsParts()
    {
        QFETCH(int, style);
        QFETCH(QSize, size);
        QFETCH(bool, isCharacters);
        QFETCH(QRect, image);
        service().extend(QStringLiteral("config"),
                         {{QStringLiteral("guide"), true},
                          {QStringLiteral("type"), isCharacters ? QStringLiteral("character") : QString()}});
        start(QVVerifyStyle(style), size);
        QTEST(frame("contentView"), "content");
        QCOMPARE(frame("imageView"), image);
        QCOMPARE(frame("helpButton"), QRect(image.right() - 29, image.top(), 30, 30));
        QCOMPARE(frame("refreshButton"), QRect(image.right() - 59, image.top(), 30, 30));
        QCOMPARE(isShown("charInputView"), isCharacters);
        if (isCharacters) {
            QFETCH(QRect, content);
            QCOMPARE(frame("charInputView"),
                     QRect(content.left(), content.bottom() - 39, content.width(), 40));
        }
        const QRect caption = frame("captchaLabel");
        QCOMPARE(caption.bottom() + 1, image.top() - 10);
        QVERIFY(std::abs(caption.center().x() - size.width() / 2) <= 1);
        QCOMPARE(part("imageView")->findChild<QWidget *>(QStringLiteral("outageLabel"))->pos(), QPoint(0, 0));
    }

    void movesTheBarsWithinThePicture()
    {
        start(QVVerifyStyleEmbed, QSize(414, 300));
        const QRect image = frame("imageView");
        QCOMPARE(frame("promptOverlayView"), QRect(image.left(), image.bottom() - 29, image.width(), 30));
        QVERIFY(frame("errorOverlayView").top() > image.bottom());
        view().resize(320, 260);
        const QRect smaller = frame("imageView");
        QCOMPARE(smaller, QRect(0, 38, 320, 184));
        QCOMPARE(frame("promptOverlayView"), QRect(0, smaller.bottom() - 29, 320, 30));
    }

    void followsTheScreenInAPopupOnly()
    {
        start(QVVerifyStylePopup, QSize(800, 500));
        QCOMPARE(view().contentViewWidth(), 414.0);
        view().setScreenWidth(360);
        QCOMPARE(view().contentViewWidth(), 360.0);
        QTest::qWait(1);
        QCOMPARE(frame("contentView").width(), 360);
        view().setScreenWidth(1000);
        QTest::qWait(1);
        QCOMPARE(frame("contentView").size(), QSize(414, 238));

        start(QVVerifyStyleEmbed, QSize(500, 300));
        view().setScreenWidth(320);
        QTest::qWait(1);
        QCOMPARE(frame("contentView").width(), 500);
    }

    void badgeIsAsLargeAsItsTextNeeds()
    {
        service().answer(QStringLiteral("switch"), {{QStringLiteral("active"), true}});
        start(QVVerifyStyleEmbed);
        const auto *badge = part<QLabel>("outageLabel");
        QFont font = qv_systemFont(12);
        font.setItalic(true);
        QCOMPARE(badge->size(), QFontMetrics(font).size(Qt::TextSingleLine, badge->text()) + QSize(10, 5));
        QCOMPARE(badge->text(), QStringLiteral("Backup service"));
        QCOMPARE(badge->geometry().topLeft(), QPoint(0, 0));
    }

    void showsAnAdvertisement_data()
    {
        QTest::addColumn<QString>("word");
        QTest::newRow("short") << "Ad";
        QTest::newRow("with markup") << "<b>&A</b>";
        QTest::newRow("long") << QString(40, u'W');
    }

    void showsAnAdvertisement()
    {
        QFETCH(QString, word);
        offer(QStringLiteral("get"), word, QStringLiteral("https://ad.example/x?y=z"));
        start(QVVerifyStyleEmbed);
        const QFontMetrics metrics(qv_systemFont(12));
        const int width = std::min(metrics.horizontalAdvance(word) + 10, 125);
        QCOMPARE(part("adButton")->geometry(), QRect(0, 0, width, metrics.height() + 5));
        QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "take");
        click("adButton");
        QCOMPARE(m_opened, QStringList{QStringLiteral("https://ad.example/x?y=z")});
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    }

    void opensWebPagesOnly()
    {
        offer(QStringLiteral("get"), QStringLiteral("word"), QStringLiteral("file:///etc/passwd"));
        start(QVVerifyStyleEmbed);
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "take");
        click("adButton");
        QCOMPARE(m_opened, QStringList());
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    }

    void aRemovedAdvertisementStaysAway()
    {
        offer(QStringLiteral("get"), QStringLiteral("word"), QStringLiteral("https://ad.example"));
        start(QVVerifyStyleEmbed);
        QVERIFY(isShown("adButton"));
        offer(QStringLiteral("refresh"), QStringLiteral("another word"),
              QStringLiteral("https://ad.example"));
        click("refreshButton");
        QVERIFY(!part("adButton"));
        QVERIFY(waitForReady(2));
        QVERIFY(!part("adButton"));
        for (const QWidget *window : QApplication::topLevelWidgets())
            QVERIFY(window->objectName() != QLatin1String("adButton") || !window->isVisible());
    }

    void spinsTheRefreshButtonOnce()
    {
        service().delay(QStringLiteral("refresh"), 2s);
        start(QVVerifyStylePopup);
        const auto *button = part<QVCustomActionButton>("refreshButton");
        const QImage still = part("refreshButton")->grab().toImage();
        click("refreshButton");
        QCOMPARE(button->layer().animationKeys().size(), 1);
        advance(150ms);
        QVERIFY(part("refreshButton")->grab().toImage() != still);
        advance(151ms);
        QCOMPARE(button->layer().animationKeys().size(), 0);
        QCOMPARE(part("refreshButton")->grab().toImage(), still);
    }

    void canBeUsedByKeyboard()
    {
        service().extend(QStringLiteral("config"), {{QStringLiteral("guide"), true}});
        start(QVVerifyStylePopup);
        QCOMPARE(part("helpButton")->accessibleName(), QStringLiteral("Help"));
        QCOMPARE(part("refreshButton")->accessibleName(), QStringLiteral("New picture"));
        QWidget *button = part("refreshButton");
        QVERIFY(button->focusPolicy() & Qt::TabFocus);
        button->setFocus(Qt::TabFocusReason);
        QCOMPARE(view().window()->focusWidget(), button);
        QTest::keyClick(button, Qt::Key_Space);
        QVERIFY(waitForReady(2));
        QCOMPARE(service().count(QStringLiteral("refresh")), 1);
    }

    void drawsFromAnywhereInTheView_data()
    {
        QTest::addColumn<QString>("where");
        for (const char *name : {"captchaLabel", "refreshButton", "helpButton", "adButton", "imageView"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void drawsFromAnywhereInTheView()
    {
        QFETCH(QString, where);
        service().extend(QStringLiteral("config"), {{QStringLiteral("guide"), true}});
        offer(QStringLiteral("click"), QStringLiteral("word"), QStringLiteral("https://ad.example"));
        start(QVVerifyStylePopup);
        const QPoint from = frame(qPrintable(where)).center();
        const int step = from.x() > 200 ? -8 : 8;
        QVPointerInput::strokeWithMouse(view(), QVPointerInput::wave(from, 20, step));
        QVERIFY(waitFor([this] { return service().count(QStringLiteral("verify")) == 1; }));
        QCOMPARE(service().count(QStringLiteral("refresh")), 0);
    }

    void drawsOverTheBars()
    {
        service().answerCode(QStringLiteral("verify"), QStringLiteral("0104"));
        start(QVVerifyStyleEmbed);
        const QPoint onBar = frame("promptOverlayView").center() - QPoint(150, 0);
        QVPointerInput::strokeWithFinger(view(), QVPointerInput::wave(onBar, 20, 8));
        QVERIFY(waitForWrongAnswer());
        advance(300ms);
        QCOMPARE(bar(), QStringLiteral("errorOverlayView"));
        QVPointerInput::strokeWithMouse(view(), QVPointerInput::wave(onBar, 20, 8));
        QVERIFY(waitForWrongAnswer(2));
    }

    void showsTheStrokeAboveThePictureAtLittleCost()
    {
        start(QVVerifyStylePopup);
        const QPoint from = frame("imageView").topLeft() + QPoint(20, 80);
        const auto points = QVPointerInput::wave(from, 40, 6);
        QVPointerInput::press(view(), points[0]);
        QVPointerInput::move(view(), points[1]);
        QCoreApplication::processEvents();
        PaintWatch viewWatch(view());
        PaintWatch pictureWatch(picture());
        for (std::size_t i = 2; i < points.size(); ++i) {
            viewWatch.painted = pictureWatch.painted = QRegion();
            QVPointerInput::move(view(), points[i]);
            QCoreApplication::processEvents();
            for (const QRegion &painted : {viewWatch.painted, pictureWatch.painted})
                QVERIFY(painted.boundingRect().width() <= 16 && painted.boundingRect().height() <= 24);
        }
        QCOMPARE(view().grab().toImage().pixelColor(points[20]), QColor(65, 141, 251));
        QVPointerInput::release(view(), points.back());
        QVERIFY(view().grab().toImage().pixelColor(points[20]) != QColor(65, 141, 251));
    }

    void endsAStrokeWithTheView()
    {
        start(QVVerifyStyleEmbed);
        const QPoint from = frame("imageView").center();
        QVPointerInput::press(view(), from);
        QVPointerInput::move(view(), from + QPoint(30, 0));
        QCOMPARE(bar(), QString());
        view().window()->hide();
        QCOMPARE(bar(), QStringLiteral("promptOverlayView"));
        view().window()->show();
        QVPointerInput::press(view(), from);
        QVPointerInput::move(view(), from + QPoint(30, 0));
        destroyView();
    }

private:
    void prepare() override
    {
        DrawTestCase::prepare();
        m_opened.clear();
    }

    void offer(const QString &request, const QString &word, const QString &link)
    {
        service().extend(request, {{QStringLiteral("adlinkword"), word}, {QStringLiteral("adlink"), link}});
    }

    QStringList m_opened;
};

QV_TEST(TestDrawView)
#include "TestDrawView.moc"
