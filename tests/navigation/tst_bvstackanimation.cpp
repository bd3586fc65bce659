// SPDX-License-Identifier: MIT
#include "navigation/BVStackAnimationWidget.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTest>

namespace {

using Flight = BVStackAnimationWidget;

struct Still : QProxyStyle
{
    int styleHint(StyleHint, const QStyleOption *, const QWidget *, QStyleHintReturn *) const override { return 0; }
};

/// An image with the alpha 0 to 255 in each line.
QImage allAlphas(int height)
{
    QImage image(256, height, QImage::Format_ARGB32);
    for (int i = 0; i < 256 * height; ++i)
        image.setPixel(i & 255, i >> 8, qRgba(i * 7 & 255, i >> 8, 201, i & 255));
    return image;
}

/// A window with an edit, a button, a page to fly to and a flight over them.
struct Scene
{
    Scene()
    {
        m_window.resize(300, 200);
        m_page->setGeometry(10, 20, 31, 21);
        m_flight->setGeometry(m_window.rect());
        m_flight->setDuration(60);
        m_window.show();
        QObject::connect(m_flight, &Flight::finished, &m_window, [this](QAction *action) { m_finished.append(action); });
        QObject::connect(m_edit, &QLineEdit::textEdited, [this] { m_input += "key "; });
        QObject::connect(m_button, &QPushButton::clicked, [this] { m_input += "click "; });
        QObject::connect(new QShortcut(QKeySequence("F7"), &m_window), &QShortcut::activated, [this] { m_input += "F7"; });
    }
    ~Scene() { delete m_action; }

    void start(QAction *action)
    {
        QImage image = allAlphas(40);
        m_flight->startAnimation(&image, m_window.mapToGlobal(QPoint(150, 150)), action);
    }
    QString inputThatArrives()
    {
        m_input.clear();
        m_window.show();
        QApplication::setActiveWindow(&m_window);
        QTest::keyClick(m_edit, Qt::Key_X);
        QTest::mouseClick(m_button, Qt::LeftButton);
        QTest::keyClick(m_edit, Qt::Key_F7);
        return m_input;
    }

    QWidget m_window;
    QLineEdit *m_edit = new QLineEdit(&m_window);
    QPushButton *m_button = new QPushButton(&m_window);
    QWidget *m_page = new QWidget(&m_window);
    QPointer<QAction> m_action = new QAction;
    QPointer<Flight> m_flight = new Flight(&m_window);
    QVector<QAction *> m_finished;
    QString m_input;
};

} // namespace

using Change = std::function<void(Scene &)>;
Q_DECLARE_METATYPE(Change)

class tst_BVStackAnimation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fadesByTheRule();
    void fadesAnyFormat();
    void mapsTheTarget();
    void frames();
    void endsOnce_data();
    void endsOnce();
    void reportsEveryFlight();
    void isNoPaneOfASplitter();
};

void tst_BVStackAnimation::fadesByTheRule()
{
    const QImage source = allAlphas(2);
    for (int percent = 0; percent <= 100; ++percent) {
        const double s = percent / 100.0;
        QImage faded;
        Flight::fade(source, s, &faded);
        for (double wrong : {-0.1, 1.1, qQNaN()})
            Flight::fade(source, wrong, &faded); // changes nothing
        for (int x = 0; x < 256; ++x)
            QCOMPARE(faded.pixel(x, 1), qRgba(x * 7 & 255, 1, 201, int(x * s)));
    }
}

void tst_BVStackAnimation::fadesAnyFormat()
{
    QImage fine = allAlphas(2);
    fine.setDevicePixelRatio(2.0);
    for (const auto format : {QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB32, QImage::Format_Indexed8}) {
        QImage image = fine.convertToFormat(format);
        QImage expected;
        Flight::fade(image.convertToFormat(QImage::Format_ARGB32), 0.5, &expected);
        Flight::fade(image, 0.5, &image); // onto itself
        QCOMPARE(image, expected);
        QCOMPARE(image.devicePixelRatio(), 2.0);
    }
}

void tst_BVStackAnimation::mapsTheTarget()
{
    // The page lies at (10, 20), which counts twice, and measures 31 x 21. The last is refused.
    const QPoint targets[] = {{35, 50}, {50, 40}, {20, 40}, {50, 60}, {20, 60}, {20, 60}};
    Scene scene;
    for (int i = 0; i < 6; ++i) {
        scene.m_flight->setEndWidget(scene.m_page, Flight::AnimationTargetPosition(i));
        QCOMPARE(scene.m_flight->mapTargetPosition(), targets[i]);
    }
    scene.m_flight->setTargetPoint(QPoint(-1, 7));
    QCOMPARE(scene.m_flight->mapTargetPosition(), QPoint(-1, 7));
}

void tst_BVStackAnimation::frames()
{
    const std::tuple<int, QRect, int> frames[] = {
        {0, {150, 150, 256, 40}, 100}, {25, {112, 112, 192, 30}, 75}, {71, {43, 42, 74, 11}, 28}, // 100 * 0.29 is a little less than 29
        {79, {31, 30, 53, 8}, 21},     {80, {30, 29, 51, 8}, 21},                                 // no longer faded
        {99, {1, 0, 2, 0}, 21},        {100, {0, -1, 0, 0}, 21},      {101, {0, -1, 0, 0}, 21},   // ignored
    };
    Scene scene;
    scene.m_flight->setTargetPoint(QPoint(0, -1));
    scene.start(scene.m_action);
    for (const auto &[frame, rect, alpha] : frames) {
        scene.m_flight->updateRect(frame);
        QCOMPARE(scene.m_flight->currentRect(), rect);
        QCOMPARE(qAlpha(scene.m_flight->currentImage().pixel(100, 0)), alpha);
    }
}

void tst_BVStackAnimation::endsOnce_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("reports");
    QTest::newRow("in time") << Change([](Scene &) {}) << 1;
    QTest::newRow("before its time") << Change([](Scene &s) { s.m_flight->endAnimation(); }) << 1;
    QTest::newRow("window hidden") << Change([](Scene &s) { s.m_window.hide(); }) << 1;
    QTest::newRow("window closed") << Change([](Scene &s) { s.m_window.close(); }) << 1;
    QTest::newRow("end widget deleted") << Change([](Scene &s) { delete s.m_page; }) << 1;
    QTest::newRow("action deleted") << Change([](Scene &s) { delete s.m_action; }) << 0;
    QTest::newRow("deleted") << Change([](Scene &s) { delete s.m_flight; }) << 0;
    QTest::newRow("receiver deletes it") << Change([](Scene &s) { connect(s.m_flight, &Flight::finished, [&s] { delete s.m_flight; }); }) << 1;
    QTest::newRow("null image") << Change([](Scene &s) { s.m_flight->startAnimation(nullptr, QPoint(), nullptr); }) << 1;
}

void tst_BVStackAnimation::endsOnce()
{
    QFETCH(Change, change);
    Scene scene;
    scene.m_flight->setEndWidget(scene.m_page, Flight::Center);
    scene.start(scene.m_action);
    QCOMPARE(scene.inputThatArrives(), QString());
    QVERIFY(scene.m_flight->isVisible());
    change(scene);
    QTRY_VERIFY(!scene.m_flight || !scene.m_flight->isInFlight());
    QTEST(scene.m_finished.count(), "reports");
    QVERIFY(!scene.m_flight || scene.m_flight->isHidden());
    QCOMPARE(scene.inputThatArrives(), QString("key click F7"));
}

void tst_BVStackAnimation::reportsEveryFlight()
{
    Scene scene;
    QAction second;
    QTest::mousePress(scene.m_button, Qt::LeftButton);
    scene.start(scene.m_action);
    scene.start(&second);
    QTest::mouseRelease(scene.m_button, Qt::LeftButton);
    QVERIFY(!scene.m_button->isDown());  // the press came before the flight
    QVERIFY(scene.m_finished.isEmpty()); // never from within the start
    QTRY_COMPARE(scene.m_finished, (QVector<QAction *>{scene.m_action, &second}));

    Still still;
    scene.m_flight->setStyle(&still);
    scene.start(scene.m_action);
    QCOMPARE(scene.inputThatArrives(), QString("key click F7"));
    QVERIFY(scene.m_finished.count() == 2 && scene.m_flight->isHidden());
    QTRY_COMPARE(scene.m_finished.count(), 3);

    scene.m_flight->setStyle(nullptr);
    scene.m_flight->setDuration(100000);
    scene.m_window.hide();
    scene.start(scene.m_action);
    QTRY_COMPARE(scene.m_finished.count(), 4);
    scene.m_window.show();
    scene.start(scene.m_action);
    QVERIFY(scene.m_flight->isVisible());
    scene.m_window.hide();
    QTRY_COMPARE(scene.m_finished.count(), 5);
}

void tst_BVStackAnimation::isNoPaneOfASplitter()
{
    Scene scene;
    QSplitter splitter(&scene.m_window);
    splitter.addWidget(new QWidget);
    auto *flight = new Flight(&splitter);
    splitter.addWidget(new QWidget);
    splitter.resize(300, 200);
    splitter.show();
    flight->setGeometry(splitter.rect());
    flight->show();
    QCoreApplication::processEvents();
    QCOMPARE(flight->parentWidget(), &splitter);
    QVERIFY(!flight->isWindow());
    QCOMPARE(splitter.count(), 2);
    QCOMPARE(flight->geometry(), splitter.rect());
}

QTEST_MAIN(tst_BVStackAnimation)
#include "tst_bvstackanimation.moc"
