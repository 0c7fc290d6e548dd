#include "layers/QVLayer.h"
#include "layers/QVLayerPainter.h"
#include "layers/QVPathGeometry.h"
#include "support/QVTestCase.h"

#include <QPainter>

#include <numbers>

using namespace std::chrono_literals;
using Property = QVLayerProperty;
using std::numbers::pi;

namespace {

QImage painted(const QVLayer &root)
{
    QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    QVLayerPainter(painter).paint(root);
    return image;
}

std::shared_ptr<QVLayer> square(const QRectF &frame, const QColor &color)
{
    auto layer = std::make_shared<QVLayer>();
    layer->setFrame(frame);
    layer->setBackgroundColor(color);
    return layer;
}

} // namespace

class TestLayer : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:

    void emptyKeyNeverReplacesAndANameDoes()
    {
        QVLayer layer;
        std::vector<bool> stopped;
        QVAnimation animation = QVAnimation::basic(Property::Opacity, 0.0, 1.0);
        animation.setStopped([&](bool finished) { stopped.push_back(finished); });
        const QString name = q("pulse");
        for (const QString &key : {QString(), QString(), name, name})
            layer.addAnimation(animation, key);
        QCOMPARE(layer.animationKeys(), QStringList({QString(), QString(), name}));
        QCOMPARE(stopped, std::vector<bool>{false});
        layer.removeAnimation(name);
        QCOMPARE(stopped.size(), 2U);
        layer.removeAllAnimations();
        QCOMPARE(stopped, std::vector<bool>(4, false));
        QVERIFY(layer.animationKeys().isEmpty());
        QCOMPARE(layer.presented().opacity, 1.0);
    }

    void finishedAnimationStopsPresentingAndPerhapsStays()
    {
        for (const bool removed : {true, false}) {
            QVLayer layer;
            QVAnimation animation = QVAnimation::basic(Property::Opacity, 0.0, 0.5);
            animation.setRemovedOnCompletion(removed);
            animation.setStopped([](bool) {});
            layer.addAnimation(animation, QString());
            QVAnimationStack::StoppedList ended;
            QVERIFY(layer.present(time().now() + 250ms, ended));
            QVERIFY(!layer.present(time().now() + 300ms, ended));
            QCOMPARE(ended.size(), 1U);
            QCOMPARE(layer.presented().opacity, 1.0);
            QCOMPARE(layer.animationKeys().size(), removed ? 0 : 1);
        }
    }

    void treeRefusesCyclesAndMovesLayers()
    {
        const auto parent = std::make_shared<QVLayer>();
        const auto child = std::make_shared<QVLayer>();
        auto other = std::make_shared<QVLayer>();
        parent->addSublayer(child);
        child->addSublayer(parent);
        child->addSublayer(child);
        QVERIFY(child->sublayers().empty());
        other->addSublayer(child);
        QVERIFY(parent->sublayers().empty());
        QCOMPARE(child->superlayer(), other.get());
        other.reset();
        QCOMPARE(child->superlayer(), nullptr);
    }

    void turnsAndScalesAboutItsCentre()
    {
        QVLayer root;
        const auto bar = square({10, 18, 20, 4}, Qt::white);
        root.addSublayer(bar);
        bar->setRotation(pi / 2);
        bar->setScaleX(0.5);
        const QImage image = painted(root);
        QCOMPARE(image.pixelColor(20, 16), QColor(Qt::white));
        QCOMPARE(image.pixelColor(20, 23), QColor(Qt::white));
        QCOMPARE(image.pixelColor(20, 13), QColor(Qt::black));
        QCOMPARE(image.pixelColor(12, 20), QColor(Qt::black));
    }

    void strokesOnlyThePresentedPartAndFillsAll()
    {
        QVLayer root;
        const auto ring = square({0, 0, 40, 40}, QColor());
        ring->setPath(qv_arcPath({20, 20}, 15, -pi / 2, 3 * pi / 2));
        ring->setLineWidth(4);
        ring->setStrokeColor(Qt::red);
        ring->setFillColor(Qt::blue);
        ring->setStrokeStart(0.25);
        ring->setStrokeEnd(0.75);
        root.addSublayer(ring);
        const QImage image = painted(root);
        QCOMPARE(image.pixelColor(20, 35), QColor(Qt::red));
        QCOMPARE(image.pixelColor(20, 4), QColor(Qt::black));
        QCOMPARE(image.pixelColor(20, 6), QColor(Qt::blue));
        QCOMPARE(image.pixelColor(20, 20), QColor(Qt::blue));
    }
};

QV_TEST(TestLayer)
#include "TestLayer.moc"
