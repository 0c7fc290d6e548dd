#include "draw/DrawTestCase.h"
#include "draw/QVRenderDrawView.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "views/QVCharVerifyInputView.h"
#include "views/QVCharVerifyInputViewDoneButton.h"
#include "views/QVCharVerifyTextField.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QLabel>

using namespace std::chrono_literals;

/// The main service's side of the conversation.
class TestDrawFlow : public DrawTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void asksForAPicture_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("pictureRequest");
        QTest::newRow("embedded") << 0 << "embed"
                                  << "get";
        QTest::newRow("popup") << 1 << "popup"
                               << "click";
        QTest::newRow("invisible") << 2 << "invisible"
                                   << "click";
        QTest::newRow("unknown") << 9 << ""
                                 << "click";
    }

    void asksForAPicture()
    {
        QFETCH(int, style);
        QFETCH(QString, pictureRequest);
        start(QVVerifyStyle(style));
        QCOMPARE(service().asked(),
                 QStringList({QStringLiteral("switch"), QStringLiteral("config"), pictureRequest}));
        QTEST(service().query(QStringLiteral("config")).value(QStringLiteral("type")), "type");
        QCOMPARE(service().query(QStringLiteral("config")).value(QStringLiteral("scene")),
                 QStringLiteral("3"));
        QCOMPARE(service().query(pictureRequest).value(QStringLiteral("challenge")),
                 QStringLiteral("main-challenge"));
        QVERIFY(picture().hasImage());
        QVERIFY(view().canDirectlyShow());
        const bool isEmbedded = style == QVVerifyStyleEmbed;
        QCOMPARE(bar(), isEmbedded ? QStringLiteral("promptOverlayView") : QString());
        QCOMPARE(isShown("captchaLabel"), !isEmbedded);
        QVERIFY(isShown("refreshButton"));
        QVERIFY(!isShown("helpButton"));
        QVERIFY(!isShown("charInputView"));
    }

    void passes()
    {
        start(QVVerifyStyleEmbed);
        draw();
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        const auto query = service().query(QStringLiteral("verify"));
        QCOMPARE(query.value(QStringLiteral("challenge")), QStringLiteral("main-challenge"));
        QCOMPARE(query.value(QStringLiteral("v")).size(), 20 * 9);
        // The clock starts when the drag is recognised, with the second of 20 positions. A double of
        // seconds since 1970 is good for a fraction of a microsecond, so 360 ms may fall just short.
        QVERIFY(QStringList({QStringLiteral("359"), QStringLiteral("360")})
                    .contains(query.value(QStringLiteral("drawtime"))));
        QVERIFY(!isShown("refreshButton"));
        QVERIFY(!view().canDirectlyShow());
        advance(999ms);
        QCOMPARE(listener.tokens, QStringList());
        advance(1ms);
        QCOMPARE(listener.tokens, QStringList{QStringLiteral("main-token")});
        // Passed for good: nothing more can be drawn, and no countdown runs.
        draw();
        advance(200s);
        QCOMPARE(service().count(QStringLiteral("verify")), 1);
        QCOMPARE(service().count(QStringLiteral("refresh")), 0);
        QCOMPARE(listener.tokens.size(), 1);
    }

    void passesByClick()
    {
        service().answer(QStringLiteral("click"), {{QStringLiteral("code"), QStringLiteral("0103")},
                                                   {QStringLiteral("token"), QStringLiteral("click-token")}});
        show(QVVerifyStylePopup);
        view().requestQuarvoConfigAction();
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        QCOMPARE(barText(), QStringLiteral("Verified"));
        QVERIFY(!picture().hasImage());
        QVERIFY(!view().canDirectlyShow());
        advance(1s);
        QCOMPARE(listener.tokens, QStringList{QStringLiteral("click-token")});
        QVERIFY(time().advanceUntilIdle(1s));
    }

    void givesTwoTriesOnAPicture()
    {
        service().answerCode(QStringLiteral("verify"), QStringLiteral("0104"));
        start(QVVerifyStyleEmbed);
        const QImage first = picture().image();
        draw();
        QVERIFY(waitForWrongAnswer());
        QCOMPARE(bar(), QStringLiteral("errorOverlayView"));
        QCOMPARE(barText(), QStringLiteral("Not quite right. Please try again."));
        QVERIFY(isShown("refreshButton") && part("refreshButton")->isEnabled());
        QCOMPARE(picture().image(), first);
        // The message goes by itself, and the prompt comes back.
        advance(999ms);
        QCOMPARE(bar(), QStringLiteral("errorOverlayView"));
        advance(1ms);
        QCOMPARE(bar(), QStringLiteral("promptOverlayView"));
        QCOMPARE(service().count(QStringLiteral("refresh")), 0);

        draw();
        QVERIFY(waitForReady(2));
        QCOMPARE(wrongCount, 2);
        QCOMPARE(service().count(QStringLiteral("refresh")), 1);
        QVERIFY(picture().image() != first);
        // A new picture has two tries of its own.
        draw();
        QVERIFY(waitForWrongAnswer(3));
        QCOMPARE(service().count(QStringLiteral("refresh")), 1);
        QCOMPARE(failures.size(), 0);
    }

    void theServicesOwnCountOfTriesCounts_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("refreshes");
        QTest::newRow("one before") << 1 << 1;
        QTest::newRow("beyond") << 2 << 0;
    }

    void theServicesOwnCountOfTriesCounts()
    {
        QFETCH(int, count);
        service().answerCode(QStringLiteral("verify"), QStringLiteral("0104"));
        service().extend(QStringLiteral("get"), {{QStringLiteral("verifyCount"), count}});
        start(QVVerifyStyleEmbed);
        draw();
        QVERIFY(waitForWrongAnswer());
        QTest::qWait(20);
        QTEST(int(service().count(QStringLiteral("refresh"))), "refreshes");
    }

    void keepsThePromptAwayDuringAStroke()
    {
        service().answerCode(QStringLiteral("verify"), QStringLiteral("0104"));
        start(QVVerifyStyleEmbed);
        draw();
        QVERIFY(waitForWrongAnswer());
        advance(300ms);
        const QPoint place = frame("imageView").center();
        QVPointerInput::press(view(), place);
        QVPointerInput::move(view(), place + QPoint(20, 0));
        QCOMPARE(bar(), QString());
        advance(2s);
        QCOMPARE(bar(), QString());
        QVPointerInput::release(view(), place + QPoint(20, 0));
        QCOMPARE(bar(), QStringLiteral("promptOverlayView"));
    }

    void rejectsAShortStrokeByTheStyle_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("barAfter");
        QTest::newRow("embedded") << 0 << "promptOverlayView";
        QTest::newRow("popup") << 1 << "";
    }

    void rejectsAShortStrokeByTheStyle()
    {
        QFETCH(int, style);
        start(QVVerifyStyle(style));
        const auto points = QVPointerInput::wave(frame("imageView").topLeft() + QPoint(40, 80), 9, 8);
        QVPointerInput::strokeWithFinger(view(), points);
        QTest::qWait(20);
        QCOMPARE(service().count(QStringLiteral("verify")), 0);
        QTEST(bar(), "barAfter");
        draw();
        QVERIFY(waitFor([this] { return service().count(QStringLiteral("verify")) == 1; }));
    }

    void refreshesByButton()
    {
        start(QVVerifyStylePopup);
        const QImage first = picture().image();
        click("refreshButton");
        QVERIFY(!picture().hasImage());
        QVERIFY(!part("refreshButton")->isEnabled());
        draw();
        QVERIFY(waitForReady(2));
        QVERIFY(picture().image() != first);
        QVERIFY(part("refreshButton")->isEnabled());
        QCOMPARE(service().asked().mid(3), QStringList{QStringLiteral("refresh")});
    }

    void refreshesWhenTheTimeIsUp()
    {
        start(QVVerifyStylePopup);
        advance(178s);
        QTest::qWait(10);
        QCOMPARE(service().count(QStringLiteral("refresh")), 0);
        advance(1s);
        QVERIFY(waitForReady(2));
        advance(179s);
        QVERIFY(waitForReady(3));
        QCOMPARE(service().count(QStringLiteral("refresh")), 2);
    }

    void startsAnewWhenThePictureFails()
    {
        service().breakPictures(true);
        service().extend(QStringLiteral("config"), {{QStringLiteral("guide"), true}});
        show(QVVerifyStyleEmbed);
        advance(100ms);
        QVERIFY(waitForFailure());
        QCOMPARE(failures.first(), QVError(QStringLiteral("The picture could not be loaded"), 10000));
        QCOMPARE(bar(), QStringLiteral("errorOverlayView"));
        QVERIFY(picture().hasImage());
        QVERIFY(!view().canDirectlyShow());
        QVERIFY(!isShown("refreshButton"));
        QVERIFY(isShown("helpButton"));
        advance(5s);
        QCOMPARE(bar(), QStringLiteral("errorOverlayView"));
        draw();

        service().breakPictures(false);
        click("errorOverlayView");
        QCOMPARE(bar(), QString());
        QVERIFY(!picture().hasImage());
        QVERIFY(!isShown("helpButton"));
        QVERIFY(waitForReady());
        QCOMPARE(service().asked(),
                 QStringList({QStringLiteral("switch"), QStringLiteral("config"), QStringLiteral("get"),
                              QStringLiteral("switch"), QStringLiteral("config"), QStringLiteral("get")}));
    }

    void showsAFailureOfEachRequest_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("request");
        QTest::newRow("configuration") << 0 << "config";
        QTest::newRow("picture") << 0 << "get";
        QTest::newRow("click") << 1 << "click";
        QTest::newRow("refresh") << 1 << "refresh";
        QTest::newRow("verify") << 1 << "verify";
    }

    void showsAFailureOfEachRequest()
    {
        QFETCH(int, style);
        QFETCH(QString, request);
        service().answerCode(request, QStringLiteral("1002"));
        show(QVVerifyStyle(style));
        view().requestQuarvoConfigAction();
        if (request == QLatin1String("refresh") || request == QLatin1String("verify")) {
            QVERIFY(waitForReady());
            if (request == QLatin1String("refresh"))
                click("refreshButton");
            else
                draw();
        }
        QVERIFY(waitForFailure());
        QCOMPARE(failures.first().code(), 1002);
        QCOMPARE(barText(), QStringLiteral("Verification expired. Please try again."));
        QVERIFY(picture().hasImage());
        QVERIFY(!view().canDirectlyShow());
        QVERIFY(!isShown("refreshButton"));
        QVERIFY(picture().accessibleDescription().isEmpty());
        advance(200s);
        QCOMPARE(service().count(QStringLiteral("refresh")), request == QLatin1String("refresh") ? 1 : 0);
        QCOMPARE(time().pendingCount(), 0);
    }

    void usesAnswersThatTheHostHolds()
    {
        show(QVVerifyStylePopup);
        const auto click = std::make_shared<QVClickResponseModel>();
        view().handleConfigResponseFromQuarvoServer(nullptr, click);
        QVERIFY(waitForReady());
        QCOMPARE(service().count(QStringLiteral("switch")), 1);

        const auto config = std::make_shared<QVConfigResponseModel>();
        config->setCdn_servers({QStringLiteral("http://127.0.0.1:1/none")});
        config->setChallenge(QStringLiteral("held"));
        view().handleConfigResponseFromQuarvoServer(config, click);
        QCOMPARE(config->getRefreshCount(), 1);
        QVERIFY(waitForFailure());
        view().handleConfigResponseFromQuarvoServer(config, nullptr);
        QVERIFY(waitForFailure(2));
        QCOMPARE(service().asked().size(), 3);
    }

    void typesCharacters()
    {
        service().extend(QStringLiteral("config"), {{QStringLiteral("type"), QStringLiteral("character")}});
        start(QVVerifyStyleEmbed);
        QVERIFY(isShown("charInputView"));
        QCOMPARE(barText(), QStringLiteral("Type the characters in the picture"));
        draw();
        type(QStringLiteral("Ab 9"));
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        const auto query = service().query(QStringLiteral("verify"));
        QCOMPARE(query.value(QStringLiteral("v")), QStringLiteral("Ab 9"));
        QCOMPARE(query.value(QStringLiteral("drawtime")), QStringLiteral("0"));
        QCOMPARE(service().count(QStringLiteral("verify")), 1);
        QCOMPARE(part<QVCharVerifyInputViewDoneButton>("doneButton")->buttonStauts(), 0);
    }

    void freesTheInputAfterAWrongAnswerAndAfterAReset()
    {
        service().extend(QStringLiteral("config"), {{QStringLiteral("type"), QStringLiteral("character")}});
        service().answerCode(QStringLiteral("verify"), QStringLiteral("0104"));
        start(QVVerifyStylePopup);
        QCOMPARE(part<QLabel>("captchaLabel")->text(), QStringLiteral("Type the characters in the picture"));
        auto *done = part<QVCharVerifyInputViewDoneButton>("doneButton");
        type(QStringLiteral("abc"));
        QCOMPARE(done->buttonStauts(), 1);
        QVERIFY(waitForWrongAnswer());
        QCOMPARE(done->buttonStauts(), 0);
        type(QStringLiteral("abcd"));
        view().reset();
        QCOMPARE(done->buttonStauts(), 0);
        QVERIFY(waitForReady(2));
        QCOMPARE(wrongCount, 1);
    }

    void canInputOnlyWithAPicture()
    {
        show(QVVerifyStyleEmbed);
        QCOMPARE(view().canInput(), std::optional(false));
        advance(100ms);
        QVERIFY(waitForReady());
        QCOMPARE(view().canInput(), std::optional(true));
        view().reset();
        QCOMPARE(view().canInput(), std::optional(false));
    }

    void startsWhenItIsPutIntoAParent()
    {
        QWidget first;
        QVRenderDrawView loose(QVVerifyStyleEmbed);
        advance(1s);
        loose.setParent(&first);
        loose.setParent(nullptr);
        advance(1s);
        QTest::qWait(10);
        QCOMPARE(service().asked(), QStringList());
        loose.setParent(&first);
        advance(99ms);
        QTest::qWait(10);
        QCOMPARE(service().asked(), QStringList());
        advance(1ms);
        QVERIFY(waitFor([this] { return service().count(QStringLiteral("get")) == 1; }));
        QVRenderDrawView popup(QVVerifyStylePopup, &first);
        advance(1s);
        QTest::qWait(10);
        QCOMPARE(service().count(QStringLiteral("switch")), 1);
    }

private:
    void type(const QString &text) const
    {
        auto *field = part<QVCharVerifyTextField>("inputTF");
        QVPointerInput::click(*field, field->rect().center());
        QTest::keyClicks(field, text);
        click("doneButton");
    }
};

QV_TEST(TestDrawFlow)
#include "TestDrawFlow.moc"
