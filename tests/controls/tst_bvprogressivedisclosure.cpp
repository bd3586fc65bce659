// SPDX-License-Identifier: MIT
#include "controls/BVLineEdit.h"
#include "controls/BVProgressiveDisclosure.h"
#include "foundation/BVWidgetStatusHandler.h"

#include "TestSupport.h"

#include <QAccessible>
#include <QApplication>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include <memory>

namespace {

/// A style with animations of the given length.
class TimedStyle : public QProxyStyle
{
public:
    explicit TimedStyle(int duration)
        : QProxyStyle(QStringLiteral("Fusion"))
        , m_duration(duration)
    {
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget, QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration ? m_duration : QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    int m_duration;
};

/// A section with two edits between a field above and a field below, in a window that is shown.
struct Form
{
    explicit Form(int duration = 0)
    {
        QApplication::setStyle(new TimedStyle(duration));
        auto *column = new QVBoxLayout(&m_window);
        for (QWidget *widget : std::initializer_list<QWidget *>{m_above, m_section, m_below})
            column->addWidget(widget);
        column->addStretch();
        m_section->setTitle(QStringLiteral("&Die && punch"));
        auto *inside = new QVBoxLayout;
        inside->addWidget(m_first);
        inside->addWidget(m_second);
        m_section->setContentLayout(inside);
        m_window.show();
    }

    QToolButton *header() { return m_section->findChild<QToolButton *>(); }
    bool isActive() { return QTest::qWaitForWindowActive(&m_window); }

    QWidget m_window;
    BVLineEdit *m_above = new BVLineEdit;
    BVLineEdit *m_below = new BVLineEdit;
    BVLineEdit *m_first = new BVLineEdit;
    BVLineEdit *m_second = new BVLineEdit;
    BVProgressiveDisclosure *m_section = new BVProgressiveDisclosure;
};

} // namespace

class tst_BVProgressiveDisclosure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void keys_data();
    void keys();
    void status();
    void focus();
    void height();
    void flight();
    void slotsThatInterfere();
    void accessible();
};

void tst_BVProgressiveDisclosure::keys_data()
{
    QTest::addColumn<bool>("rtl");
    QTest::addColumn<QString>("keys");  // r and l are the arrows, e Return, a minus stands for itself
    QTest::addColumn<QString>("heard"); // each signal: c for closed, o for opened
    QTest::newRow("space and return toggle") << false << " e "
                                             << "coc";
    QTest::newRow("arrows") << false << "rllr"
                            << "co";
    QTest::newRow("arrows from right to left") << true << "lrrl"
                                               << "co";
    QTest::newRow("signs") << false << "+--+"
                           << "co";
    QTest::newRow("others") << false << "xud"
                            << "";
}

void tst_BVProgressiveDisclosure::keys()
{
    QFETCH(bool, rtl);
    QFETCH(QString, keys);
    Form form;
    QVERIFY(form.isActive());
    form.m_window.setLayoutDirection(rtl ? Qt::RightToLeft : Qt::LeftToRight);
    form.m_section->setFocus();
    QString heard;
    connect(form.m_section, &BVProgressiveDisclosure::sigClosed, this, [&](bool closed) {
        heard += QLatin1Char(closed ? 'c' : 'o');
        QCOMPARE(form.m_section->isOpen(), !closed);
    });
    const QMap<char, Qt::Key> named = {{'r', Qt::Key_Right}, {'l', Qt::Key_Left}, {'e', Qt::Key_Return}, {'u', Qt::Key_Up}};
    for (const QChar key : qAsConst(keys)) {
        const char letter = key.toLatin1();
        QTest::keyClick(form.header(), named.value(letter, QTest::asciiToKey(letter)));
        form.m_section->setFocus(); // some keys move it
    }
    QTEST(heard, "heard");
}

void tst_BVProgressiveDisclosure::status()
{
    Form form;
    form.m_section->setOpen(false);
    form.m_first->setNeedInputStatus(true);
    QVERIFY(form.m_section->isNeedInputStatus());
    QVERIFY(form.m_section->property("needInputStatus").toBool());
    form.m_second->setUserEditStatus(true);
    form.m_first->setEnabled(false);
    QCOMPARE(form.m_section->getBvStatus(), BVWidgetStatus::Stati(BVWidgetStatus::UserEdit));

    auto *row = new QWidget(form.m_section->contentWidget());
    auto *late = new BVLineEdit(row);
    form.m_section->statusHandler()->attach(late);
    late->setDifferentStatus(true);
    QVERIFY(form.m_section->isDifferentStatus());
    delete late;
    QVERIFY(!form.m_section->isDifferentStatus());
    form.m_second->setParent(&form.m_window);
    QCOMPARE(form.m_section->getBvStatus(), BVWidgetStatus::Stati());
    form.m_second->setParent(form.m_section->contentWidget()); // with its status
    QVERIFY(form.m_section->isUserEditStatus());
    form.m_section->setContentWidget(new QWidget);
    QCOMPARE(form.m_section->getBvStatus(), BVWidgetStatus::Stati());
}

void tst_BVProgressiveDisclosure::focus()
{
    Form form;
    QVERIFY(form.isActive());
    form.m_second->setFocus();
    form.m_section->setOpen(false);
    QCOMPARE(QApplication::focusWidget(), form.header());
    QTest::keyClick(form.header(), Qt::Key_Tab); // passes what is hidden
    QCOMPARE(QApplication::focusWidget(), form.m_below);
    form.m_section->setOpen(true);
    form.m_section->setOpen(false); // from afar
    QCOMPARE(QApplication::focusWidget(), form.m_below);

    auto *outer = new BVProgressiveDisclosure(&form.m_window);
    auto *column = new QVBoxLayout;
    column->addWidget(form.m_section);
    outer->setContentLayout(column);
    outer->setOpen(false);
    BVProgressiveDisclosure::openAround(form.m_first);
    QVERIFY(outer->isOpen());
    QVERIFY(form.m_section->isOpen());
}

void tst_BVProgressiveDisclosure::height()
{
    Form form;
    form.m_window.resize(300, 600);
    QCoreApplication::processEvents();
    const QSize open = form.m_section->size();
    QCOMPARE(form.m_section->sizeHint().height(), open.height());
    form.m_section->setOpen(false);
    QTRY_COMPARE(form.m_section->height(), form.header()->height());
    QCOMPARE(form.m_section->minimumSizeHint().width(), form.m_section->layout()->minimumSize().width());
    QCOMPARE(form.m_section->width(), open.width());

    form.m_section->setTitle(QString(200, QLatin1Char('w'))); // elided rather than in the way
    QVERIFY(form.m_section->minimumSizeHint().width() < 300);
    form.m_section->setOpen(true);
    QTRY_COMPARE(form.m_section->size(), open);

    form.m_first->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    delete form.m_window.layout()->takeAt(3); // nothing else grows
    QTRY_VERIFY(form.m_section->height() > 400);
    form.m_section->setOpen(false);
    QTRY_COMPARE(form.m_section->height(), form.header()->height());
}

void tst_BVProgressiveDisclosure::flight()
{
    Form form(1000); // cut down by the section
    QVERIFY(form.isActive());
    form.m_window.resize(300, 600);
    QCoreApplication::processEvents();
    const int open = form.m_section->height();
    const int edit = form.m_second->height();
    form.m_section->setOpen(false);
    QCOMPARE(form.m_section->sizeHint().height(), open); // has only just started
    QTRY_VERIFY(form.m_section->height() < open);
    QCOMPARE(form.m_second->height(), edit); // is covered, not squeezed
    form.m_section->setOpen(true);           // turns back
    QTRY_COMPARE(form.m_section->height(), open);
    form.m_section->setOpen(false);
    QTRY_VERIFY(!form.m_first->isVisible());
    QTRY_COMPARE(form.m_section->height(), form.header()->height());
    form.m_section->setAnimated(false);
    form.m_section->setOpen(true);
    QCOMPARE(form.m_section->sizeHint().height(), open);
}

void tst_BVProgressiveDisclosure::slotsThatInterfere()
{
    Form form;
    QVERIFY(form.isActive());
    form.m_first->setFocus();
    QTest::keyClick(form.m_first, Qt::Key_1);
    connect(form.m_first, &QLineEdit::editingFinished, this, [&] { form.m_section->setOpen(true); });
    form.m_section->setOpen(false); // ends the edit
    QVERIFY(form.m_section->isOpen());
    QVERIFY(form.m_first->isVisible());
    QVERIFY(form.header()->isChecked());

    Form other;
    connect(other.m_section, &BVProgressiveDisclosure::sigClosed, this, [&] { delete other.m_section; });
    other.m_section->setOpen(false);
    QVERIFY(!other.m_window.findChild<BVProgressiveDisclosure *>());
}

void tst_BVProgressiveDisclosure::accessible()
{
    Form form;
    QAccessibleInterface *section = QAccessible::queryAccessibleInterface(form.m_section);
    QCOMPARE(section->role(), QAccessible::Grouping);
    QCOMPARE(section->text(QAccessible::Name), QStringLiteral("Die & punch"));
    QAccessibleInterface *header = QAccessible::queryAccessibleInterface(form.header());
    QCOMPARE(header->role(), QAccessible::Button);
    QCOMPARE(header->text(QAccessible::Name), QStringLiteral("Die & punch"));
    QVERIFY(header->state().expanded && !header->state().collapsed);
    header->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(!form.m_section->isOpen());
    QVERIFY(!header->state().expanded && header->state().collapsed);
    form.m_section->setEnabled(false);
    header->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(!form.m_section->isOpen());
}

QTEST_MAIN(tst_BVProgressiveDisclosure)

#include "tst_bvprogressivedisclosure.moc"
