#include <QImage>
#include <QPainter>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace
{

const QStringList kNavigation{"DeviceSetting", "IO", "ProcessSetting", "CharacteristicCurve", "WeaveFunction"};
const QStringList kKeys{"switchMode", "feedWire", "pullWire", "gas", "redLight", "monitor"};
const QString kKeyPath = QStringLiteral(":/png/phybutton/%1%2ressed.png");
const QString kStatusPath = QStringLiteral(":/png/LaserSwitch%1.png");

/// The picture as it is seen on a ground, scaled to a height in pixels; null when it does not load.
QImage seen(const QString& path, int height, const QColor& ground = Qt::white)
{
    const QImage picture = QImage(path).scaledToHeight(height, Qt::SmoothTransformation);
    QImage image(picture.size(), QImage::Format_RGB32);
    image.fill(ground);
    QPainter(&image).drawImage(0, 0, picture);
    return image;
}

QVector<int> greys(const QImage& image)
{
    QVector<int> values;
    for (int i = 0; i < image.width() * image.height(); ++i) {
        values << qGray(image.pixel(i % image.width(), i / image.width()));
    }
    return values;
}

/// Distance in grey of two pictures of one size, pixel by pixel; empty when they cannot be compared.
QVector<int> distances(const QVector<int>& one, const QVector<int>& other)
{
    QVector<int> values;
    for (int i = 0; one.size() == other.size() && i < one.size(); ++i) {
        values << std::abs(one[i] - other[i]);
    }
    return values;
}

double mean(const QVector<int>& values)
{
    return std::accumulate(values.begin(), values.end(), 0.0) / std::max(1, values.size());
}

/// Share of the pixels that are further apart than a quarter of the scale, which nobody overlooks.
double shareApart(const QVector<int>& values)
{
    return double(std::count_if(values.begin(), values.end(), [](int v) { return v > 64; })) /
           std::max(1, values.size());
}

/// What an eye without the green receptor sees (full deuteranopia, on the stored values).
QImage withoutGreen(QImage image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            const auto mix = [&c](double r, double g, double b) {
                return std::clamp(qRound(r * c.red() + g * c.green() + b * c.blue()), 0, 255);
            };
            image.setPixelColor(x, y,
                                QColor(mix(0.367, 0.861, -0.228), mix(0.280, 0.673, 0.047), mix(-0.012, 0.043, 0.969)));
        }
    }
    return image;
}

} // namespace

class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void readableOnItsGrounds();
    void keysDiffer();
    void statusIsNeverConfused();
};

void TestResources::readableOnItsGrounds()
{
    const auto check = [](const QString& path, int smallestHeight, const QList<QColor>& grounds) {
        for (const QColor& ground : grounds) {
            QVector<int> values = greys(seen(path, smallestHeight, ground));
            QVERIFY2(!values.isEmpty(), qPrintable(path));
            // Between a twentieth and the rest of the pixels lies half of the scale: strokes, not specks. A dark glyph
            // without a ground of its own fails on the dark red, a white one on the light grey.
            std::sort(values.begin(), values.end());
            const int few = values.size() / 20;
            QVERIFY2(values[values.size() - 1 - few] - values[few] > 128, qPrintable(path + ' ' + ground.name()));
        }
    };
    for (const QString& name : kNavigation) {
        check(":/png/meanlist/LaserWeld" + name + ".png", 16, {"#ebebeb", "#87a1ae", "#8a0121"});
    }
    for (const QString& name : kKeys) {
        check(kKeyPath.arg(name, "P"), 48, {Qt::white, Qt::black});
        check(kKeyPath.arg(name, "Unp"), 48, {Qt::white, Qt::black});
    }
    check(kStatusPath.arg("Real"), 25, {Qt::white, Qt::black});
    check(kStatusPath.arg("Simu"), 25, {Qt::white, Qt::black});
    check(":/Corvane/png/arrow/down_arrow_white.png", 16, {Qt::white, "#f5f5f5"});
}

void TestResources::keysDiffer()
{
    for (const QString& name : kKeys) {
        const QVector<int> released = greys(seen(kKeyPath.arg(name, "Unp"), 48));
        const QVector<int> pressed = greys(seen(kKeyPath.arg(name, "P"), 48));
        // A glyph covers a fifth of its key: recoloured or moved it changes the mean by less than 60. More takes
        // another plate, which is seen from the corner of the eye.
        const double change = mean(distances(released, pressed));
        QVERIFY2(change > 64, qPrintable(QString("%1: %2").arg(name).arg(change)));
        // Feeding and retracting wire must not be mixed up: a turned arrow alone changes a twentieth of the key.
        for (const QString& other : kKeys) {
            const double share = shareApart(distances(released, greys(seen(kKeyPath.arg(other, "Unp"), 48))));
            QVERIFY2(other == name || share > 0.07, qPrintable(QString("%1 like %2: %3").arg(name, other).arg(share)));
        }
    }
}

void TestResources::statusIsNeverConfused()
{
    const QImage real = seen(kStatusPath.arg("Real"), 25);
    const QImage simu = seen(kStatusPath.arg("Simu"), 25);
    QCOMPARE(real.size(), QSize(53, 25)); // the room in the status bar
    QCOMPARE(simu.size(), QSize(53, 25));
    QVERIFY(shareApart(distances(greys(real), greys(simu))) > 0.5);
    QVERIFY(shareApart(distances(greys(withoutGreen(real)), greys(withoutGreen(simu)))) > 0.5);
    // Another shape, not only another brightness: one is not the negative of the other.
    QImage negative = simu;
    negative.invertPixels();
    QVERIFY(shareApart(distances(greys(real), greys(negative))) > 0.2);
}

QTEST_GUILESS_MAIN(TestResources)
#include "tst_resources.moc"
