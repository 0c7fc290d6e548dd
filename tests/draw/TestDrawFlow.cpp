#include "draw/DrawTestCase.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "views/QVCharVerifyInputViewDoneButton.h"
#include "views/QVCharVerifyTextField.h"

using namespace std::chrono_literals;

/// The main service's side of the conversation.
class TestDrawFlow : public DrawTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void asksForAPicture_data()
    {
        const auto row = addColumns<int, QByteArray, QString, QString>(
            {"style", "switchAnswer", "type", "pictureRequest"});
        const QByteArray off = R"({"active":false})";
        row("embedded", 0, off, "embed", "get");
        row("popup", 1, off, "popup", "click");
        row("invisible", 2, off, "invisible", "click");
        row("unknown", 9, off, "", "click");
        row("switch is no object", 0, QByteArray("[]"), "embed", "get");
    }

    void asksForAPicture()
    {
        QFETCH(int, style);
        QFETCH(QString, pictureRequest);
        QFETCH(QByteArray, switchAnswer);
        service().answerBytes(q("switch"), switchAnswer);
        start(QVVerifyStyle(style));
        QCOMPARE(service().asked(), QStringList({q("switch"), q("config"), pictureRequest}));
        QTEST(service().query(q("config")).value(q("type")), "type");
        QCOMPARE(service().query(q("config")).value(q("scene")), q("3"));
        QCOMPARE(service().query(pictureRequest).value(q("challenge")), q("main-challenge"));
        QVERIFY(picture().hasImage());
        QVERIFY(view().canDirectlyShow());
        QCOMPARE(view().canInput(), std::optional(true));
        const bool isEmbedded = style == QVVerifyStyleEmbed;
        QCOMPARE(bar(), isEmbedded ? q("promptOverlayView") : QString());
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
        const auto query = service().query(q("verify"));
        QCOMPARE(query.value(q("challenge")), q("main-challenge"));
        QCOMPARE(query.value(q("v")).size(), 20 * 9);
        // The clock starts when the drag is recognised, with the second of 20 positions. A double of
        // seconds since 1970 is good for a fraction of a microsecond, so 360 ms may fall just short.
        QVERIFY(QStringList({q("359"), q("360")}).contains(query.value(q("drawtime"))));
        QVERIFY(!isShown("refreshButton"));
        QVERIFY(!view().canDirectlyShow());
        advance(999ms);
        QCOMPARE(listener.tokens, QStringList());
        advance(1ms);
        QCOMPARE(listener.tokens, QStringList{q("main-token")});
        // Passed for good: nothing more can be drawn, and no countdown runs.
        draw();
        advance(200s);
        QCOMPARE(service().count(q("verify")), 1);
        QCOMPARE(service().count(q("refresh")), 0);
        QCOMPARE(listener.tokens.size(), 1);
    }

    void passesByClick()
    {
        service().answer(q("click"), {{q("code"), q("0103")}, {q("token"), q("click-token")}});
        show(QVVerifyStylePopup);
        view().requestQuarvoConfigAction();
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        QCOMPARE(barText(), q("Verified"));
        QVERIFY(!picture().hasImage());
        QVERIFY(!view().canDirectlyShow());
        advance(1s);
        QCOMPARE(listener.tokens, QStringList{q("click-token")});
        QVERIFY(time().advanceUntilIdle(1s));
    }

    void givesTwoTriesOnAPicture()
    {
        service().answerCode(q("verify"), q("0104"));
        start(QVVerifyStyleEmbed);
        const QImage first = picture().image();
        draw();
        QVERIFY(waitForWrongAnswer());
        QCOMPARE(bar(), q("errorOverlayView"));
        QCOMPARE(barText(), q("Not quite right. Try again."));
        QVERIFY(isShown("refreshButton") && part("refreshButton")->isEnabled());
        QCOMPARE(picture().image(), first);
        // The message goes by itself, and the prompt comes back.
        advance(999ms);
        QCOMPARE(bar(), q("errorOverlayView"));
        advance(1ms);
        QCOMPARE(bar(), q("promptOverlayView"));
        QCOMPARE(service().count(q("refresh")), 0);

        draw();
        QVERIFY(waitForReady(2));
        QCOMPARE(wrongCount, 2);
        QCOMPARE(service().count(q("refresh")), 1);
        QVERIFY(picture().image() != first);
        QCOMPARE(failures.size(), 0);
    }

    void theServicesOwnCountOfTriesCounts()
    {
        service().answerCode(q("verify"), q("0104"));
        service().extend(q("get"), {{q("verifyCount"), 1}});
        start(QVVerifyStyleEmbed);
        draw();
        QVERIFY(waitForReady(2));
        QCOMPARE(wrongCount, 1);
        QCOMPARE(service().count(q("refresh")), 1);
    }

    void keepsThePromptAwayDuringAStroke()
    {
        service().answerCode(q("verify"), q("0104"));
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
        QCOMPARE(bar(), q("promptOverlayView"));
    }

    void rejectsAShortStrokeByTheStyle_data()
    {
        const auto row = addColumns<int, QString>({"style", "barAfter"});
        row("embedded", 0, "promptOverlayView");
        row("popup", 1, "");
    }

    void rejectsAShortStrokeByTheStyle()
    {
        QFETCH(int, style);
        start(QVVerifyStyle(style));
        const auto points = QVPointerInput::wave(frame("imageView").topLeft() + QPoint(40, 80), 9, 8);
        QVPointerInput::strokeWithFinger(view(), points);
        QTest::qWait(20);
        QCOMPARE(service().count(q("verify")), 0);
        QTEST(bar(), "barAfter");
        draw();
        QVERIFY(waitFor([this] { return service().count(q("verify")) == 1; }));
    }

    void refreshesByButton()
    {
        start(QVVerifyStylePopup);
        const QImage first = picture().image();
        click("refreshButton");
        QVERIFY(!picture().hasImage());
        QVERIFY(!part("refreshButton")->isEnabled());
        QVERIFY(waitForReady(2));
        QVERIFY(picture().image() != first);
        QVERIFY(part("refreshButton")->isEnabled());
        QCOMPARE(service().asked().mid(3), QStringList{q("refresh")});
    }

    void startsAnewWhenThePictureFails()
    {
        service().breakPictures(true);
        service().extend(q("config"), {{q("guide"), true}});
        show(QVVerifyStyleEmbed);
        advance(100ms);
        QVERIFY(waitForFailure());
        QCOMPARE(failures.first(), QVError(q("Picture not loaded. Try again."), 10000));
        QCOMPARE(bar(), q("errorOverlayView"));
        QVERIFY(picture().hasImage());
        QVERIFY(!view().canDirectlyShow());
        QVERIFY(!isShown("refreshButton"));
        QVERIFY(isShown("helpButton"));
        advance(5s);
        QCOMPARE(bar(), q("errorOverlayView"));
        draw();

        service().breakPictures(false);
        click("errorOverlayView");
        QCOMPARE(bar(), QString());
        QVERIFY(!picture().hasImage());
        QVERIFY(!isShown("helpButton"));
        QVERIFY(waitForReady());
        QCOMPARE(service().asked(),
                 QStringList({q("switch"), q("config"), q("get"), q("switch"), q("config"), q("get")}));
    }

    void showsAFailureOfEachRequest_data()
    {
        const auto row = addColumns<int, QString>({"style", "request"});
        row("switch", 0, "switch");
        row("configuration", 0, "config");
        row("picture", 0, "get");
        row("click", 1, "click");
        row("refresh", 1, "refresh");
        row("verify", 1, "verify");
        row("outage picture", 1, "outage get");
    }

    void showsAFailureOfEachRequest()
    {
        QFETCH(int, style);
        QFETCH(QString, request);
        service().answerCode(request, q("1002"));
        if (request == q("switch"))
            service().answerBytes(request, "no JSON");
        if (request == q("outage get"))
            service().answer(q("switch"), {{q("active"), true}});
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
        QCOMPARE(failures.first().code(), request == q("switch") ? 3840 : 1002);
        QCOMPARE(barText(), failures.first().domain());
        QVERIFY(picture().hasImage());
        QVERIFY(!view().canDirectlyShow());
        QVERIFY(!isShown("refreshButton"));
        QVERIFY(picture().accessibleDescription().isEmpty());
        advance(200s);
        QCOMPARE(service().count(q("refresh")), request == QLatin1String("refresh") ? 1 : 0);
        QCOMPARE(time().pendingCount(), 0);
    }

    void replacesAPictureInTimeWhereItIsSeen()
    {
        start(QVVerifyStyleEmbed);
        advance(180s);
        QVERIFY(waitForReady(2));
        QCOMPARE(service().count(q("refresh")), 1);
        // Hidden for less, it comes back as it is; hidden for longer, it is asked for once, when it is seen.
        for (const auto &[time, requests] : QVCases<std::chrono::seconds, int>{{170s, 1}, {600s, 2}}) {
            view().window()->hide();
            advance(time);
            QCOMPARE(service().count(q("refresh")), 1);
            view().window()->show();
            QVERIFY(waitForReady(requests + 1));
            QCOMPARE(service().count(q("refresh")), requests);
        }
    }

    void usesAnswersThatTheHostHolds()
    {
        show(QVVerifyStylePopup);
        const auto click = std::make_shared<QVClickResponseModel>();
        view().handleConfigResponseFromQuarvoServer(nullptr, click);
        QVERIFY(waitForReady());
        QCOMPARE(service().count(q("switch")), 1);

        const auto config = std::make_shared<QVConfigResponseModel>();
        config->setCdn_servers({q("http://127.0.0.1:1/none")});
        config->setChallenge(q("held"));
        view().handleConfigResponseFromQuarvoServer(config, click);
        QCOMPARE(config->getRefreshCount(), 1);
        QVERIFY(waitForFailure());
    }

    void typesCharacters()
    {
        service().extend(q("config"), {{q("type"), q("character")}});
        service().answerCode(q("verify"), q("0104"));
        start(QVVerifyStyleEmbed);
        QVERIFY(isShown("charInputView"));
        QCOMPARE(barText(), q("Type the characters you see"));
        draw();
        type(q("Ab 9"));
        const auto *done = part<QVCharVerifyInputViewDoneButton>("doneButton");
        QCOMPARE(done->buttonStauts(), 1);
        QVERIFY(waitForWrongAnswer());
        QCOMPARE(done->buttonStauts(), 0);
        const auto query = service().query(q("verify"));
        QCOMPARE(query.value(q("v")), q("Ab 9"));
        QCOMPARE(query.value(q("drawtime")), q("0"));
        QCOMPARE(service().count(q("verify")), 1);
        type(q("abcd"));
        view().reset();
        QCOMPARE(done->buttonStauts(), 0);
        QVERIFY(waitForReady(2));
        QCOMPARE(wrongCount, 1);
    }

    void startsWhenItIsPutIntoAParent()
    {
        QWidget first;
        QVRenderDrawView loose(QVVerifyStyleEmbed);
        advance(1s);
        loose.setParent(&first);
        advance(99ms);
        QTest::qWait(10);
        QCOMPARE(service().asked(), QStringList());
        advance(1ms);
        QVERIFY(waitFor([this] { return service().count(q("get")) == 1; }));
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
