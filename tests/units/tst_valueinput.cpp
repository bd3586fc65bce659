// SPDX-License-Identifier: MIT
#include "foundation/BVStatusColor.h"
#include "foundation/BVWidgetStatusHandler.h"
#include "style/StyleSheetHandler.h"
#include "units/BVValueEdit.h"
#include "units/UnitsConfiguration.h"

#include "XdoTool.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QSignalSpy>
#include <QTest>

using S = BVWidgetStatus;

/// Value input as a person meets it: in a real window, with keys and clicks from outside.
class tst_ValueInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void typedUnitIsConverted();
    void unacceptableTextColoursTheContainers();
    void changedUnitChoiceShowsAtOnce();

private:
    std::unique_ptr<QWidget> m_window;
    QGroupBox *m_group = nullptr;
    BVValueEdit *m_length = nullptr;
    BVValueEdit *m_width = nullptr;
};

void tst_ValueInput::initTestCase()
{
    qApp->setStyle(QStringLiteral("Fusion"));
    qApp->setStyleSheet(Brimvale::StyleSheetHandler::load());
}

void tst_ValueInput::init()
{
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, QStringLiteral("inch"));
    m_window = std::make_unique<QWidget>();
    m_group = new QGroupBox(QStringLiteral("Blank"), m_window.get());
    m_length = new BVValueEdit;
    m_width = new BVValueEdit;
    auto *rows = new QFormLayout(m_group);
    rows->addRow(QStringLiteral("Length"), m_length);
    rows->addRow(QStringLiteral("Width"), m_width);
    (new QVBoxLayout(m_window.get()))->addWidget(m_group);
    auto *groupHandler = new BVWidgetStatusHandler(m_group);
    auto *windowHandler = new BVWidgetStatusHandler(m_window.get());
    windowHandler->attach(m_group);
    for (BVValueEdit *edit : {m_length, m_width}) {
        edit->setUnitString(QStringLiteral("inch"));
        edit->setRange(0.0, 100.0);
        edit->setValue(2.0);
        groupHandler->attach(edit);
    }
    QVERIFY(XdoTool::showActive(m_window.get()));
    QVERIFY(XdoTool::click(m_length));
    QTRY_VERIFY(m_length->hasFocus());
    QVERIFY(XdoTool::pressKey(QStringLiteral("ctrl+a")));
}

void tst_ValueInput::cleanup()
{
    m_window.reset();
    UnitsConfiguration::instance().setDefaultValues();
}

void tst_ValueInput::typedUnitIsConverted()
{
    QSignalSpy changed(m_length, &BVValueEdit::valueChanged);
    QVERIFY(XdoTool::typeText(QStringLiteral("25.4mm")));
    QTRY_COMPARE(m_length->text(), QStringLiteral("25.4mm"));
    QVERIFY(XdoTool::pressKey(QStringLiteral("Return")));
    QTRY_COMPARE(m_length->text(), QStringLiteral("1.000 inch"));
    QCOMPARE(changed.count(), 1);
    QVERIFY(qAbs(m_length->value() - 1.0) < 1e-12);
    QCOMPARE(m_length->selectedText(), m_length->text());
    QVERIFY(!m_length->isNeedInputStatus());
}

void tst_ValueInput::unacceptableTextColoursTheContainers()
{
    const QColor normal = m_length->palette().color(QPalette::Text);
    QVERIFY(XdoTool::typeText(QStringLiteral("5kg")));
    QTRY_COMPARE(m_length->text(), QStringLiteral("5kg"));
    QVERIFY(XdoTool::pressKey(QStringLiteral("Tab")));
    QTRY_VERIFY(m_width->hasFocus());
    QCOMPARE(m_length->text(), QStringLiteral("5kg"));
    QCOMPARE(m_length->value(), 2.0);
    const QColor red = BVStatusColor::colors().forLightBackground(S::NeedInput);
    QCOMPARE(m_length->palette().color(QPalette::Text), red);
    QVERIFY(S::testStatusProperty(m_group, S::NeedInput));
    QVERIFY(S::testStatusProperty(m_window.get(), S::NeedInput));

    QVERIFY(XdoTool::click(m_length));
    QVERIFY(XdoTool::pressKey(QStringLiteral("ctrl+a")));
    QVERIFY(XdoTool::typeText(QStringLiteral("3")));
    QVERIFY(XdoTool::pressKey(QStringLiteral("Return")));
    QTRY_COMPARE(m_length->value(), 3.0);
    QCOMPARE(m_length->palette().color(QPalette::Text), normal);
    QVERIFY(!S::testStatusProperty(m_window.get(), S::NeedInput));
}

void tst_ValueInput::changedUnitChoiceShowsAtOnce()
{
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, QStringLiteral("mm"));
    QCOMPARE(m_length->text(), QStringLiteral("50.80 mm"));
    QCOMPARE(m_width->text(), QStringLiteral("50.80 mm"));
    QVERIFY(XdoTool::pressKey(QStringLiteral("ctrl+a")));
    QVERIFY(XdoTool::typeText(QStringLiteral("1")));
    QVERIFY(XdoTool::pressKey(QStringLiteral("Return")));
    QTRY_COMPARE(m_length->text(), QStringLiteral("1.00 mm"));
    QVERIFY(qAbs(m_length->value() - 1.0 / 25.4) < 1e-12);
}

QTEST_MAIN(tst_ValueInput)

#include "tst_valueinput.moc"
