#include "support/QVTestCase.h"

#include <QAbstractButton>
#include <QBuffer>
#include <QFileInfo>
#include <QNetworkProxy>
#include <QPluginLoader>
#include <QSignalSpy>
#include <QTcpServer>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace {

/// A form with both widgets, in the format of Qt Designer.
QByteArray form(const QList<QDesignerCustomWidgetInterface *> &widgets)
{
    QByteArray children;
    for (const QDesignerCustomWidgetInterface *widget : widgets) {
        const QByteArray dom = widget->domXml().toUtf8();
        const qsizetype start = dom.indexOf("<widget");
        children += dom.mid(start, dom.indexOf("</ui>") - start);
    }
    return "<ui version=\"4.0\"><widget class=\"QWidget\" name=\"Form\">" + children + "</widget></ui>";
}

} // namespace

/// Loads the plugin as Qt Designer does.
class TestDesignerPlugin : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void asksNobodyAnything()
    {
        // All traffic of the process would go through this proxy.
        QTcpServer proxy;
        QVERIFY(proxy.listen(QHostAddress::LocalHost));
        QNetworkProxy::setApplicationProxy(
            {QNetworkProxy::HttpProxy, proxy.serverAddress().toString(), proxy.serverPort()});
        for (const QDesignerCustomWidgetInterface *widget : widgets())
            QCOMPARE(widget->includeFile(), QStringLiteral("<Quarvo/%1.h>").arg(widget->name()));
        const std::unique_ptr<QWidget> page = load(form(widgets()));
        QVERIFY(page);
        page->show();
        auto *const button = page->findChild<QAbstractButton *>(QStringLiteral("clickButton"));
        const auto *const panel = page->findChild<QWidget *>(QStringLiteral("embedPanel"));
        QVERIFY(button && panel);
        // Qt Designer refuses a widget whose class is not the announced one.
        QCOMPARE(QByteArray(button->metaObject()->className()), QByteArray("QVClickButton"));
        QCOMPARE(QByteArray(panel->metaObject()->className()), QByteArray("QVEmbedPanel"));
        QCOMPARE(panel->size(), QSize(400, 270));

        // A click, as in a preview, fails at once.
        const QSignalSpy failures(button, SIGNAL(failed(QVError)));
        QVERIFY(failures.isValid());
        button->click();
        QVERIFY(waitFor([&failures] { return failures.size() == 1; }));
        // Waits until the panel would have started, in real time, since a test cannot replace the clock
        // inside the plugin.
        QTest::qWait(300);
        QVERIFY(!proxy.hasPendingConnections());
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    }

private:
    static QList<QDesignerCustomWidgetInterface *> widgets()
    {
        QPluginLoader loader(QStringLiteral(QUARVO_DESIGNER_PLUGIN));
        auto *const collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
        return collection ? collection->customWidgets() : QList<QDesignerCustomWidgetInterface *>();
    }

    static std::unique_ptr<QWidget> load(const QByteArray &source)
    {
        // The constructor of QUiLoader loads all plugins that it finds. Those of others are not tested here.
        const QStringList paths = QCoreApplication::libraryPaths();
        QCoreApplication::setLibraryPaths({});
        QUiLoader loader;
        QCoreApplication::setLibraryPaths(paths);
        loader.addPluginPath(QFileInfo(QStringLiteral(QUARVO_DESIGNER_PLUGIN)).path());
        QBuffer buffer;
        buffer.setData(source);
        return std::unique_ptr<QWidget>(loader.load(&buffer));
    }
};

QV_TEST(TestDesignerPlugin)
#include "TestDesignerPlugin.moc"
