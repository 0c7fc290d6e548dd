#include "sandbox/SandboxStrokes.h"
#include "sandbox/SandboxTestCase.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QUrlQuery>

namespace {

/// The description of the protocol, with the part of JSON Schema that it uses.
class Protocol
{
public:
    Protocol()
    {
        QFile file(q(QUARVO_PROTOCOL));
        if (file.open(QIODevice::ReadOnly))
            m_all = QJsonDocument::fromJson(file.readAll()).object();
    }

    [[nodiscard]] QStringList paths() const { return m_all.value(q("paths")).toObject().keys(); }

    /// The difference between an answer and its description; null if there is none.
    [[nodiscard]] QString fault(const QUrl &asked, int status, const QByteArray &type,
                                const QByteArray &body) const
    {
        const QJsonObject operation = at(m_all, {q("paths"), asked.path(), q("get")});
        if (operation.isEmpty())
            return asked.path() + q(" is no operation");
        if (const QString wrong = faultOfQuery(operation, QUrlQuery(asked)); !wrong.isNull())
            return wrong;
        const QJsonObject content = at(operation, {q("responses"), QString::number(status), q("content")});
        const QString media = QString::fromLatin1(type).section(u';', 0, 0);
        if (!content.contains(media))
            return q("answers no %1 with status %2").arg(media).arg(status);
        return fault(at(content, {media, q("schema")}), QJsonDocument::fromJson(body).object());
    }

private:
    [[nodiscard]] static QJsonObject at(QJsonObject object, const QStringList &path)
    {
        for (const QString &step : path)
            object = object.value(step).toObject();
        return object;
    }

    [[nodiscard]] QJsonObject resolved(const QJsonObject &object) const
    {
        const QString name = object.value(q("$ref")).toString();
        return name.isNull() ? object : at(m_all, name.mid(2).split(u'/'));
    }

    [[nodiscard]] QString faultOfQuery(const QJsonObject &operation, const QUrlQuery &query) const
    {
        QStringList asked;
        for (const auto &[name, value] : query.queryItems())
            asked.append(name);
        for (const QJsonValue each : operation.value(q("parameters")).toArray()) {
            const QJsonObject parameter = resolved(each.toObject());
            const QString name = parameter.value(q("name")).toString();
            if (!asked.removeOne(name) && parameter.value(q("required")).toBool())
                return q("is asked without ") + name;
        }
        return asked.isEmpty() ? QString() : q("is asked with ") + asked.join(u',');
    }

    [[nodiscard]] QString fault(const QJsonObject &unresolved, const QJsonValue &value) const
    {
        const QJsonObject schema = resolved(unresolved);
        if (schema.contains(q("oneOf")))
            return faultOfChoice(schema.value(q("oneOf")).toArray(), value);
        const QString type = schema.value(q("type")).toString();
        if (type == q("object"))
            return faultOfObject(schema, value);
        if (type == q("array"))
            return faultOfArray(schema, value);
        if (type == q("string"))
            return faultOfText(schema, value);
        const bool fits = type == q("boolean") ? value.isBool() : value.toInteger(-1) >= 0;
        return fits ? QString() : q("is no ") + type;
    }

    [[nodiscard]] QString faultOfChoice(const QJsonArray &choices, const QJsonValue &value) const
    {
        QStringList faults;
        for (const QJsonValue choice : choices)
            faults.append(fault(choice.toObject(), value));
        return faults.count(QString()) == 1 ? QString() : q("fits not one of: ") + faults.join(q(" | "));
    }

    [[nodiscard]] QString faultOfObject(const QJsonObject &schema, const QJsonValue &value) const
    {
        if (!value.isObject())
            return q("is no object");
        const QJsonObject object = value.toObject();
        const QJsonObject known = schema.value(q("properties")).toObject();
        for (const QJsonValue name : schema.value(q("required")).toArray()) {
            if (!object.contains(name.toString()))
                return q("lacks ") + name.toString();
        }
        for (auto member = object.begin(); member != object.end(); ++member) {
            if (!known.contains(member.key()))
                return q("has ") + member.key();
            if (const QString wrong = fault(known.value(member.key()).toObject(), *member); !wrong.isNull())
                return member.key() + u' ' + wrong;
        }
        return {};
    }

    [[nodiscard]] QString faultOfArray(const QJsonObject &schema, const QJsonValue &value) const
    {
        if (!value.isArray())
            return q("is no array");
        for (const QJsonValue item : value.toArray()) {
            if (const QString wrong = fault(schema.value(q("items")).toObject(), item); !wrong.isNull())
                return wrong;
        }
        return {};
    }

    [[nodiscard]] static QString faultOfText(const QJsonObject &schema, const QJsonValue &value)
    {
        const QRegularExpression pattern(schema.value(q("pattern")).toString());
        const QJsonArray choices = schema.value(q("enum")).toArray();
        const bool fits = value.isString() && value.toString().contains(pattern) &&
                          (choices.isEmpty() || choices.contains(value)) &&
                          (!schema.contains(q("const")) || schema.value(q("const")) == value);
        return fits ? QString() : q("is ") + value.toVariant().toString();
    }

    QJsonObject m_all;
};

} // namespace

/// The sandbox answers as docs/openapi.json says.
class TestSandboxProtocol : public SandboxTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void answersAsDescribed()
    {
        const QStringList ids =
            words("test-pass, test-draw, test-character, test-wrong, test-denied, test-fast, "
                  "test-many, test-touch, test-expired, test-broken-picture, test-ad, test-guide");
        for (const QString &id : ids)
            verifyAttempt(id);
        verifyOutage();
        QCOMPARE(m_asked, Protocol().paths());
    }

    void otherShapesAreFaults_data()
    {
        const auto row = addColumns<QString, QByteArray, QString>({"asked", "answer", "fault"});
        const QString get = q("/app/get/v1?id=1&challenge=2");
        row("member missing", get, QByteArray("{'code':'0103'}"), q("lacks img"));
        row("member of another type", get, QByteArray("{'code':'0103','img':1}"), q("img is 1"));
        row("another member", get, QByteArray("{'code':'1002','why':'?'}"), q("has why"));
        row("another code", get, QByteArray("{'code':'0199'}"), q("code is 0199"));
        row("no object", q("/config"), QByteArray("[]"), q("lacks active"));
        row("no boolean", q("/config"), QByteArray("{'active':'no'}"), q("active is no boolean"));
        row("item", q("/app/config/v1?id=1&type=2&scene=3"),
            QByteArray(
                "{'code':'0103','type':'draw','challenge':'1','api_server':'http://x','cdn_servers':['x']}"),
            q("cdn_servers is x"));
        row("parameter missing", q("/app/get/v1?id=1"), QByteArray("{}"), q("is asked without challenge"));
        row("another parameter", get + q("&x=1"), QByteArray("{}"), q("is asked with x"));
        row("another path", q("/app/get/v2"), QByteArray("{}"), q("is no operation"));
    }

    void otherShapesAreFaults()
    {
        QFETCH(QString, asked);
        QFETCH(QByteArray, answer);
        QFETCH(QString, fault);
        const QString found =
            Protocol().fault(QUrl(asked), 200, "application/json", answer.replace('\'', '"'));
        QVERIFY2(found.contains(fault), qPrintable(found));
        const Reply page = get(q("/app/get/v1?id=test-badjson&challenge=1"));
        QVERIFY(!Protocol()
                     .fault(QUrl(q("/app/get/v1?id=1&challenge=1")), page.status, page.contentType, page.body)
                     .isNull());
    }

private:
    static QStringList words(const char *text) { return QString::fromLatin1(text).split(q(", ")); }

    Reply verified(const QString &address)
    {
        const Reply reply = get(address);
        const QString path = QUrl(address).path();
        const QString fault = Protocol().fault(QUrl(address), reply.status, reply.contentType, reply.body);
        if (!fault.isNull())
            QTest::qFail(qPrintable(address + u' ' + fault + q(": ") + QString::fromUtf8(reply.body)),
                         __FILE__, __LINE__);
        if (!m_asked.contains(path))
            m_asked.append(path);
        m_asked.sort();
        return reply;
    }

    void verifyAttempt(const QString &id)
    {
        const QString challenge =
            verified(q("/app/config/v1?id=%1&type=popup&scene=1&deviceid=d").arg(id)).text("challenge");
        const auto ask = [&](const char *operation, const QString &more = {}) {
            return verified(
                q("/app/%1/v1?challenge=%2&deviceid=d&id=%3%4").arg(q(operation), challenge, id, more));
        };
        for (const char *const operation : {"get", "refresh", "click"})
            ask(operation);
        ask("verify", q("&v=nonsense&drawtime=0"));
        const auto solution = sandbox().solution(challenge);
        if (solution && solution->characters.isEmpty()) {
            const QVRenderTrace trace = SandboxStrokes::recorded(solution->points);
            ask("verify", q("&v=%1&drawtime=%2").arg(trace.getRenderSource_v(), trace.getRender_drawtime()));
        } else {
            ask("verify", q("&drawtime=0&v=") + (solution ? solution->characters : QString()));
        }
        ask("verify", q("&v=&drawtime=0"));
        for (int i = 0; i < 11; ++i)
            ask("refresh");
    }

    void verifyOutage()
    {
        for (const bool isActive : {false, true}) {
            sandbox().setOutageActive(isActive);
            QCOMPARE(verified(q("/config")).json().value(q("active")).toBool(), isActive);
        }
        const QString challenge = verified(q("/outage?action=get&deviceid=d")).text("challenge");
        const QString verify = q("/outage?action=verify&challenge=%1&v=").arg(challenge);
        const auto solution = sandbox().solution(challenge);
        QCOMPARE(verified(verify + q("012")).code(), q("0104"));
        QCOMPARE(verified(verify + SandboxStrokes::cells(SandboxStrokes::recorded(solution->points))).code(),
                 q("0103"));
        QCOMPARE(verified(verify).code(), q("1002"));
        QCOMPARE(verified(q("/outage?action=sing")).status, 400);
    }

    QStringList m_asked;
};

QV_TEST(TestSandboxProtocol)
#include "TestSandboxProtocol.moc"
