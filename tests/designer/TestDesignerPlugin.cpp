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

/// A form with both widgets, as Qt Designer writes it.
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
    void namesItsWidgets()
    {
        QStringList names;
        for (QDesignerCustomWidgetInterface *widget : widgets()) {
            names.append(widget->name());
            QCOMPARE(widget->includeFile(), QStringLiteral("<Quarvo/%1.h>").arg(widget->name()));
            const std::unique_ptr<QWidget> made(widget->createWidget(nullptr));
            // Qt Designer refuses a widget that is of another class than it was announced as.
            QCOMPARE(QString::fromLatin1(made->metaObject()->className()), widget->name());
        }
        QCOMPARE(names, QStringList({QStringLiteral("QVClickButton"), QStringLiteral("QVEmbedPanel")}));
    }

    void asksNobodyAnything()
    {
        // All traffic of the process would come by here, whomever it is for.
        QTcpServer proxy;
        QVERIFY(proxy.listen(QHostAddress::LocalHost));
        QNetworkProxy::setApplicationProxy(
            {QNetworkProxy::HttpProxy, proxy.serverAddress().toString(), proxy.serverPort()});
        const std::unique_ptr<QWidget> page = load(form(widgets()));
        QVERIFY(page);
        page->show();
        auto *const button = page->findChild<QAbstractButton *>(QStringLiteral("clickButton"));
        const auto *const panel = page->findChild<QWidget *>(QStringLiteral("embedPanel"));
        QVERIFY(button && panel);
        QCOMPARE(panel->size(), QSize(400, 270));

        // A click, as in a preview, ends where it began.
        const QSignalSpy failures(button, SIGNAL(failed(QVError)));
        QVERIFY(failures.isValid());
        button->click();
        QVERIFY(waitFor([&failures] { return failures.size() == 1; }));
        // Until the panel would have started: the plugin's time is its own, no test can move it.
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
        // A loader looks for all plugins there are as it is made, and others' are none of ours.
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
