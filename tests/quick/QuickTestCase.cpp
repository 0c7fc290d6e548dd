#include "quick/QuickTestCase.h"

#include "settings/QVSDKManager.h"
#include "support/QVWait.h"

#include <QAccessible>
#include <QQmlComponent>

using namespace std::chrono_literals;

namespace {

QQuickItem *find(QQuickItem *in, const QString &name)
{
    if (!in->isVisible())
        return nullptr;
    if (in->objectName() == name)
        return in;
    const auto children = in->childItems();
    // What lies on top comes first.
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
        if (QQuickItem *const found = find(*child, name))
            return found;
    }
    return nullptr;
}

} // namespace

void QuickTestCase::prepare()
{
    DrawingTestCase::prepare();
    m_log.clear();
    // What slides or unfolds is in its place at once.
    QVSDKManager::setReducedMotion(true);
    qputenv("QT_QUICK_BACKEND", "software");
    m_engine = std::make_unique<QQmlEngine>();
    QQmlComponent component(m_engine.get(), QUrl::fromLocalFile(q(QUARVO_QUICK_TESTS "/Host.qml")));
    if (!component.isReady())
        qFatal("%s", qUtf8Printable(component.errorString()));
    m_window.reset(qobject_cast<QQuickWindow *>(component.create()));
    connect(m_window.get(), SIGNAL(said(QString)), &m_log, SLOT(say(QString)));
    m_window->requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void QuickTestCase::finish()
{
    m_log.heard = {};
    m_window.reset();
    DrawingTestCase::finish();
    m_engine.reset();
}

QQuickItem *QuickTestCase::loader(const QString &part) const
{
    return m_window->findChild<QQuickItem *>(part + q("Loader"));
}

QString QuickTestCase::partOfMode() const
{
    return modeName() == click ? q("button") : modeName() == q("embed") ? q("panel") : modeName();
}

QObject *QuickTestCase::part(const QString &name)
{
    if (!loader(name)->property("active").toBool()) {
        loader(name)->setProperty("active", true);
        if (name == q("panel"))
            advance(100ms);
    }
    return loader(name)->findChild<QObject *>(name);
}

void QuickTestCase::unload(const QString &part)
{
    loader(part)->setProperty("active", false);
}

void QuickTestCase::start(const QString &part)
{
    const bool isThere = loader(part)->property("active").toBool();
    QObject *const made = this->part(part);
    if (part != q("panel"))
        QMetaObject::invokeMethod(made, part == q("button") ? "clicked" : "start");
    else if (isThere)
        reset(part);
}

void QuickTestCase::reset(const QString &part)
{
    QMetaObject::invokeMethod(this->part(part), "reset");
}

void QuickTestCase::destroyAll()
{
    for (const char *part : {"button", "invisible", "panel"}) {
        if (m_window)
            unload(q(part));
    }
}

void QuickTestCase::changeWindow(const QString &what)
{
    if (what == q("destroy"))
        destroyWindow();
    else if (what == q("close"))
        m_window->close();
    else
        m_window->setVisible(what == q("show"));
}

QQuickItem *QuickTestCase::item(const QString &name) const
{
    return m_window ? find(m_window->contentItem(), name) : nullptr;
}

QRect QuickTestCase::frameOf(const QString &name) const
{
    const QQuickItem *const found = item(name);
    return found ? found->mapRectToScene(found->boundingRect()).toAlignedRect() : QRect();
}

QStringList QuickTestCase::badges() const
{
    QQuickItem *const badge = item(q("badge"));
    return badge ? QStringList(QAccessible::queryAccessibleInterface(badge)->text(QAccessible::Name))
                 : QStringList();
}

QString QuickTestCase::barText() const
{
    for (const char *name : {"promptBar", "errorBar", "successBar"}) {
        if (QQuickItem *const bar = item(q(name)))
            return QAccessible::queryAccessibleInterface(find(bar, q("message")))->text(QAccessible::Name);
    }
    return {};
}

void QuickTestCase::focusPicture(bool has)
{
    item(has ? picture : q("before"))->forceActiveFocus(Qt::TabFocusReason);
}

bool QuickTestCase::waitForPicture() const
{
    return waitFor([this] {
        const QQuickItem *const shown = item(picture);
        return shown && shown->parentItem()->parentItem()->parentItem()->property("hasPicture").toBool();
    });
}

QPoint QuickTestCase::centreOf(const QQuickItem &item)
{
    return item.mapToScene(item.boundingRect().center()).toPoint();
}

void QuickTestCase::clickOn(const QString &name) const
{
    QQuickItem *const target = item(name);
    QVERIFY2(target, qPrintable(name));
    QTest::mouseClick(m_window.get(), Qt::LeftButton, {}, inWindow(centreOf(*target)));
}

void QuickTestCase::pressPicture() const
{
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, waveFrom({}).front());
    settle();
}
