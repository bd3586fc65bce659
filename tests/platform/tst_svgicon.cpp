// SPDX-License-Identifier: MIT
#include "platform/BVMenu.h"
#include "platform/SvgIcon.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <tuple>

namespace {

// The application runs on a screen of density 2; read by its constructor.
const bool s_isDense = qputenv("QT_SCALE_FACTOR", "2");

/// A square, its left half filled with the colour.
QByteArray halfSquare(const char *colour)
{
    return QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\">"
                      "<rect width=\"8\" height=\"16\" fill=\"") +
           colour + "\"/></svg>";
}

/// The icon painted at a size, in device-independent pixels, on a screen of the given density.
QImage painted(const QIcon &icon, int size, qreal ratio)
{
    QImage image(QSize(size, size) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.paint(&painter, 0, 0, size, size);
    return image;
}

/// The colour of the left half when the edge in the middle is sharp in each row, else none.
QColor sharpHalf(const QImage &image)
{
    const int middle = image.width() / 2;
    const QColor colour = image.pixelColor(0, 0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != (x < middle ? colour : QColor(Qt::transparent)))
                return QColor();
        }
    }
    return colour;
}

} // namespace

class tst_SvgIcon : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sharpAtEverySize();
    void pixmapOfDenseScreen();
    void unreadable();
    void copyOutlivesOriginal();
    void menuShowsToolTips();

private:
    void write(const char *name, const QByteArray &bytes);
    QString path(const char *name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

void tst_SvgIcon::write(const char *name, const QByteArray &bytes)
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

void tst_SvgIcon::initTestCase()
{
    QVERIFY(m_folder.isValid());
    QVERIFY(s_isDense);
    write("small.svg", halfSquare("#ff0000"));
    write("large.svg", halfSquare("#0000ff"));
    write("cut.svg", halfSquare("#ff0000").chopped(9));
    write("other.svg", "<html/>");
    write("empty.svg", "");
}

void tst_SvgIcon::sharpAtEverySize()
{
    const QColor small("#ff0000");
    const QColor large("#0000ff");
    const QIcon plain = createSvgIcon(path("small.svg"));
    const QIcon icon = createTwoSizeSvgIcon(path("small.svg"), path("large.svg"));
    QVERIFY(!icon.isNull());
    const std::tuple<int, qreal, QColor> rows[] = {
        {8, 1.0, small}, {16, 1.0, small}, {16, 2.0, small}, {18, 1.0, large}, {24, 1.5, large}, {32, 2.0, large}, {300, 1.0, large},
    };
    for (const auto &[size, ratio, twoSizeColor] : rows) {
        QCOMPARE(sharpHalf(painted(plain, size, ratio)), small);
        QCOMPARE(sharpHalf(painted(icon, size, ratio)), twoSizeColor);
        if (ratio == 1.0) {
            QCOMPARE(icon.actualSize(QSize(size, size)), QSize(size, size));
            QCOMPARE(sharpHalf(icon.pixmap(size).toImage()), twoSizeColor);
        }
    }
}

void tst_SvgIcon::pixmapOfDenseScreen()
{
    const QIcon icon = createTwoSizeSvgIcon(path("small.svg"), path("large.svg"));
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QPixmap small = icon.pixmap(16);
    const QPixmap large = icon.pixmap(17);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, false);
    QCOMPARE(small.size(), QSize(32, 32));
    QCOMPARE(small.devicePixelRatio(), 2.0);
    QCOMPARE(sharpHalf(small.toImage()), QColor("#ff0000"));
    QCOMPARE(sharpHalf(large.toImage()), QColor("#0000ff"));
}

void tst_SvgIcon::unreadable()
{
    for (const char *name : {"missing.svg", ".", "cut.svg", "other.svg", "empty.svg"}) {
        const QString bad = path(name);
        const QRegularExpression warning("^Cannot read icon \"" + QRegularExpression::escape(bad) + "\": .+");
        for (int i = 0; i < 3; ++i)
            QTest::ignoreMessage(QtWarningMsg, warning);
        QVERIFY2(createSvgIcon(bad).isNull(), name);
        QVERIFY2(createTwoSizeSvgIcon(path("small.svg"), bad).isNull(), name);
        QVERIFY2(createTwoSizeSvgIcon(bad, bad).isNull(), name);
    }
}

void tst_SvgIcon::copyOutlivesOriginal()
{
    auto icon = std::make_unique<QIcon>(createTwoSizeSvgIcon(path("small.svg"), path("large.svg")));
    QIcon copy = *icon;
    copy.addFile(path("small.svg")); // detaches: the engine is cloned
    icon.reset();
    QCOMPARE(sharpHalf(painted(copy, 32, 1.0)), QColor("#0000ff"));
}

void tst_SvgIcon::menuShowsToolTips()
{
    const BVMenu menu("&View");
    QCOMPARE(menu.title(), QString("&View"));
    QVERIFY(menu.toolTipsVisible());
}

QTEST_MAIN(tst_SvgIcon)

#include "tst_svgicon.moc"
