// SPDX-License-Identifier: MIT
#include "controls/BVInfoArea.h"

#include "TestSupport.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QTextBrowser *text(const BVInfoArea &area)
{
    return area.findChild<QTextBrowser *>();
}

} // namespace

Q_DECLARE_METATYPE(QAccessible::Role)

class tst_BVInfoArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void reading_data();
    void reading();
    void messages();
    void keyboard();
    void closing();
    void height();
    void kinds_data();
    void kinds();
};

void tst_BVInfoArea::reading_data()
{
    QTest::addColumn<Qt::TextFormat>("format");
    QTest::addColumn<bool>("detect");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("link");
    QTest::newRow("plain shows marks as they are") << Qt::PlainText << false << "a <b>c</b> &lt;"
                                                   << "a <b>c</b> &lt;"
                                                   << "";
    QTest::newRow("plain has no links") << Qt::PlainText << false << "http://a.b"
                                        << "http://a.b"
                                        << "";
    QTest::newRow("detected") << Qt::PlainText << true << "see (https://a.b/c?d=1&e), now."
                              << "see (https://a.b/c?d=1&e), now."
                              << "https://a.b/c?d=1&e";
    QTest::newRow("no web address") << Qt::PlainText << true << "file:///etc/x javascript:x"
                                    << "file:///etc/x javascript:x"
                                    << "";
    QTest::newRow("lines and runs of blanks") << Qt::PlainText << true << "a\n  b"
                                              << "a\n  b"
                                              << "";
    QTest::newRow("rich") << Qt::RichText << false << "a <a href='x'>c</a>"
                          << "a c"
                          << "x";
    QTest::newRow("guessed rich") << Qt::AutoText << false << "<b>a</b>"
                                  << "a"
                                  << "";
    QTest::newRow("guessed plain") << Qt::AutoText << true << "a < b http://c"
                                   << "a < b http://c"
                                   << "http://c";
    QTest::newRow("unknown format is plain") << Qt::MarkdownText << false << "*a*"
                                             << "*a*"
                                             << "";
}

void tst_BVInfoArea::reading()
{
    QFETCH(Qt::TextFormat, format);
    QFETCH(bool, detect);
    QFETCH(QString, message);
    QFETCH(QString, link);
    BVInfoArea area;
    area.setMessage(message); // what is set later holds, too
    area.setTextFormat(format);
    area.setDetectLinks(detect);
    QTEST(text(area)->toPlainText(), "shown");

    QSignalSpy activated(&area, &BVInfoArea::sigLinkActivated);
    area.show();
    QVERIFY(QTest::qWaitForWindowActive(&area));
    area.setFocus();
    QTest::keyClick(text(area), Qt::Key_Tab);
    QTest::keyClick(text(area), Qt::Key_Return);
    QCOMPARE(activated.value(0).value(0).toString(), link);
}

void tst_BVInfoArea::messages()
{
    BVInfoArea area;
    area.addMessage(QStringLiteral("a"));
    area.addMessage(QString());
    area.addMessage(QStringLiteral("b"));
    area.addMessage(QStringLiteral("a"));
    QCOMPARE(area.messages(), QStringList({"a", "b"}));
    QCOMPARE(text(area)->toPlainText(), QStringLiteral("a\nb"));
    area.setMessage(QStringLiteral("c"));
    QCOMPARE(area.messages(), QStringList("c"));
    area.clear();
    QVERIFY(area.messages().isEmpty() && text(area)->toPlainText().isEmpty());
}

void tst_BVInfoArea::keyboard()
{
    BVInfoArea area;
    area.setMessages({"one two", "three"});
    area.show();
    QVERIFY(QTest::qWaitForWindowActive(&area));
    area.setFocus();
    QTest::keyClick(text(area), Qt::Key_X); // read only
    QTest::keyClick(text(area), Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
    QTest::keyClick(text(area), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("one "));
}

void tst_BVInfoArea::closing()
{
    BVInfoArea area;
    area.setMessage(QStringLiteral("a"));
    area.show();
    QVERIFY(QTest::qWaitForWindowActive(&area));
    QSignalSpy closed(&area, &BVInfoArea::sigClosed);
    area.setFocus();
    QTest::keyClick(text(area), Qt::Key_Escape);
    QVERIFY(area.isVisible());
    area.setClosable(true);
    QTest::keyClick(text(area), Qt::Key_Escape);
    QVERIFY(area.isHidden());
    area.show();
    QTest::keyClick(area.findChild<QToolButton *>(), Qt::Key_Space);
    QVERIFY(area.isHidden());
    area.dismiss(); // once is enough
    QCOMPARE(closed.count(), 2);
    QCOMPARE(area.messages(), QStringList("a"));
}

void tst_BVInfoArea::height()
{
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    auto *area = new BVInfoArea;
    area->setIconType(BVInfoArea::Warning);
    area->setMessage(QString(150, QLatin1Char('w')) + QStringLiteral(" and some words that follow it"));
    column->addWidget(area); // and nothing else to take the room that is left
    window.resize(700, 500);
    window.show();
    const auto fits = [area] {
        const int shown = text(*area)->viewport()->height();
        const int wanted = int(text(*area)->document()->size().height());
        return shown >= wanted && shown <= wanted + 12;
    };
    QTRY_VERIFY(fits());
    const int wide = area->height();
    window.resize(250, 500);
    QTRY_VERIFY(area->height() > wide && fits());
    area->setFont(QFont(area->font().family(), 20));
    QTRY_VERIFY(fits());
    area->addMessage(QStringLiteral("more"));
    QTRY_VERIFY(fits());

    const QPointF middle = text(*area)->viewport()->rect().center();
    QWheelEvent wheel(middle, middle, QPoint(), QPoint(0, -120), Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(text(*area)->viewport(), &wheel);
    QVERIFY(!wheel.isAccepted()); // neither scrolled nor zoomed
}

void tst_BVInfoArea::kinds_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QAccessible::Role>("role");
    QTest::newRow("none") << 0 << "Information" << QAccessible::Notification;
    QTest::newRow("information") << 1 << "Information" << QAccessible::Notification;
    QTest::newRow("warning") << 2 << "Warning" << QAccessible::AlertMessage;
    QTest::newRow("error") << 3 << "Error" << QAccessible::AlertMessage;
    QTest::newRow("question") << 4 << "Question" << QAccessible::Notification;
    QTest::newRow("unknown") << 5 << "Information" << QAccessible::Notification;
}

void tst_BVInfoArea::kinds()
{
    QFETCH(int, type);
    BVInfoArea area;
    area.setStyleSheet(QStringLiteral("BVInfoArea[iconType=\"%1\"] > QTextEdit { color: #123456; }").arg(type));
    area.setMessages({"a", "b"});
    area.show();
    area.setIconType(BVInfoArea::IconType(type));
    const bool isKnown = type <= BVInfoArea::Question;
    QCOMPARE(text(area)->palette().color(QPalette::Text) == QColor(0x12, 0x34, 0x56), isKnown);
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&area);
    QTEST(accessible->role(), "role");
    QTEST(accessible->text(QAccessible::Name), "name");
    QCOMPARE(accessible->text(QAccessible::Description), QStringLiteral("a\nb"));
}

QTEST_MAIN(tst_BVInfoArea)

#include "tst_bvinfoarea.moc"
