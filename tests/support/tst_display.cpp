// SPDX-License-Identifier: MIT
#include "XdoTool.h"

#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

/// What window tests stand on: a real window under a window manager takes keys and clicks.
class tst_Display : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typing_data();
    void typing();
    void failureIsTold();
};

void tst_Display::typing_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("letters of both cases") << "Blank Holder";
    QTest::newRow("value and unit") << "-25.4e+3mm";
    QTest::newRow("punctuation") << "1/4 (kN*m)^2";
}

void tst_Display::typing()
{
    QFETCH(const QString, text);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *first = new QLineEdit(QStringLiteral("kept"));
    auto *second = new QLineEdit(QStringLiteral("replaced"));
    layout->addWidget(first);
    layout->addWidget(second);
    QSignalSpy returned(second, &QLineEdit::returnPressed);

    QVERIFY(XdoTool::showActive(&window));
    QVERIFY(XdoTool::click(second));
    QTRY_VERIFY(second->hasFocus());
    QVERIFY(XdoTool::pressKey(QStringLiteral("ctrl+a")));
    QVERIFY(XdoTool::typeText(text));
    QVERIFY(XdoTool::pressKey(QStringLiteral("Return")));

    QTRY_COMPARE(returned.count(), 1);
    QCOMPARE(second->text(), text);
    QCOMPARE(first->text(), QStringLiteral("kept"));
}

void tst_Display::failureIsTold()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^xdotool .*No such key")));
    QVERIFY(!XdoTool::pressKey(QStringLiteral("NoSuchKeyAnywhere")));
}

QTEST_MAIN(tst_Display)
#include "tst_display.moc"
