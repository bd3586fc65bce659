// SPDX-License-Identifier: MIT
#include "foundation/BVCheckableContainerInterface.h"
#include "foundation/BVContainerWidgetInterface.h"
#include "foundation/BVWidgetInterface.h"
#include "foundation/BVWidgetStatusChangedEvent.h"

#include "TestSupport.h"

#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalMapper>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <tuple>

using S = BVWidgetStatus;

namespace {

class Carrier : public QWidget, public BVWidgetInterface
{
    Q_OBJECT

public:
    Carrier()
        : BVWidgetInterface(this)
    {
    }
    using BVWidgetInterface::setupStandardMenu;
    int m_changes = 0;

Q_SIGNALS:
    void standardActionTriggered(int action);

protected:
    void onStatusChanged() override { ++m_changes; }
};

/// Two items, the second of which is current.
class Container : public QWidget, public BVContainerWidgetInterface
{
    Q_OBJECT

public:
    int currentIndex() const override { return m_current; }
    void setCurrentIndex(int index) override { m_current = index; }
    void setItemText(int /*index*/, const QString & /*text*/) override {}
    void setItemToolTip(int /*index*/, const QString & /*toolTip*/) override {}
    using BVContainerWidgetInterface::updateWidget;

    QWidget m_items[2];
    int m_current = 1;
    int m_changes = 0;

protected:
    using BVContainerWidgetInterface::getStatusWidget;
    QWidget *getStatusWidget(int index) const override { return index == 0 || index == 1 ? const_cast<QWidget *>(&m_items[index]) : nullptr; }
    void onStatusChanged() override { ++m_changes; }
};

QStringList texts(const QMenu &menu)
{
    QStringList list;
    for (const QAction *action : menu.actions())
        list << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return list;
}

} // namespace

class tst_BVWidgetInterface : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void setters();
    void flagOfEachSetter();
    void standardMenu();
    void standardMenuIds();
    void standardMenuMember();
    void containerItems();
    void checkableContainerStatus();
    void checkableContainerButtons();
    void checkableContainerOwnsItsButtons();
    void checkableContainerMenu();
    void checkableContainerLifetime();
};

void tst_BVWidgetInterface::setters()
{
    Carrier carrier;
    EventCounter events(&carrier, BVWidgetStatusChangedEvent::s_eventType);
    carrier.setNeedInputStatus(true);
    carrier.setNeedInputStatus(true);
    carrier.setStandardLocked(true);
    carrier.setDeleteVariableDisabled(true);
    QCOMPARE(events.count(), 3);
    QCOMPARE(carrier.m_changes, 3);
    QCOMPARE(carrier.getBvStatus(), S::NeedInput | S::StandardLocked | S::DeleteVariableDisabled);
    QVERIFY(carrier.isDeleteVariableDisabled() && !carrier.isResetToStandardDisabled());
    QVERIFY(!carrier.getBvStatus(S::Normal));

    carrier.resetBvStatus(); // silent
    QCOMPARE(carrier.getBvStatus(), S::Stati());
    QCOMPARE(events.count(), 3);
    QCOMPARE(carrier.m_changes, 4);

    // The status may live on another widget, or on none.
    QWidget other;
    carrier.setStatusWidget(&other);
    carrier.setBvStatus(S::Stati(S::UserEdit));
    QVERIFY(S::isStatus(&other, S::UserEdit));
    carrier.setStatusWidget(nullptr);
    carrier.setBvStatus(S::NeedInput, true);
    QCOMPARE(carrier.getBvStatus(), S::Stati());
}

void tst_BVWidgetInterface::flagOfEachSetter()
{
#define CHECK(Name, Flag) \
    do { \
        Carrier carrier; \
        carrier.set##Name(true); \
        QCOMPARE(carrier.getBvStatus(), S::Stati(S::Flag)); \
        QVERIFY(carrier.is##Name()); \
        Container container; \
        container.set##Name(0, true); \
        QCOMPARE(container.getBvStatus(0), S::Stati(S::Flag)); \
        QVERIFY(container.is##Name(0) && !container.is##Name(1)); \
    } while (false)
    CHECK(NeedInputStatus, NeedInput);
    CHECK(UserEditStatus, UserEdit);
    CHECK(DifferentStatus, Different);
    CHECK(CompareDifferent, CompareDifferent);
    CHECK(RuvixEnabled, RuvixEnabled);
    CHECK(RuvixStandardChanged, RuvixStandardChanged);
    CHECK(RuvixActive, RuvixActive);
    CHECK(RuvixInvalid, RuvixInvalid);
    CHECK(StandardEnabled, StandardEnabled);
    CHECK(StandardDefined, StandardDefined);
    CHECK(StandardDefault, StandardDefault);
    CHECK(DefaultChanged, DefaultChanged);
    CHECK(StandardChanged, StandardChanged);
    CHECK(StandardLocked, StandardLocked);
#undef CHECK
}

void tst_BVWidgetInterface::standardMenu()
{
    const QStringList own = {"Own"};
    const std::tuple<const char *, S::Stati, bool, QStringList> rows[] = {
        {"nothing without a trigger flag", S::Stati(S::StandardDefined), true, own},
        {"reset needs a trigger flag too", (S::ResetAvailable | S::StandardDefault), true, own},
        {"disabled as a whole", (S::StandardChanged | S::ResetAvailable | S::ResetToStandardDisabled), true, own},
        {"variable", S::Stati(S::RuvixActive), true, QStringList{"Delete Variable", "-", "Own", "-"}},
        {"variable kept", (S::RuvixActive | S::DeleteVariableDisabled), true, QStringList{"-", "Own", "-"}},
        {"empty menu", S::Stati(S::RuvixActive), false, QStringList{"Delete Variable", "-"}},
        {"default wins over standard", (S::DefaultChanged | S::StandardDefault | S::ResetAvailable), false,
         QStringList{"Reset Value to Default", "-"}},
        {"all", (S::StandardChanged | S::ResetAvailable | S::RuvixEnabled | S::RuvixStandardChanged | S::RuvixActive), true,
         QStringList{"Delete Variable", "Reset Value to Standard", "Reset Variable to Standard", "Reset all to Standard", "-", "Own", "-"}},
    };
    for (const auto &[name, stati, filled, expected] : rows) {
        Carrier carrier;
        carrier.setBvStatus(stati);
        QMenu menu;
        if (filled)
            menu.addAction(QStringLiteral("Own"));
        carrier.setupStandardMenu(&menu, &carrier, SIGNAL(standardActionTriggered(int)));
        QVERIFY2(texts(menu) == expected, name);
    }
}

void tst_BVWidgetInterface::standardMenuIds()
{
    const S::Stati all = S::StandardChanged | S::StandardDefault | S::RuvixEnabled | S::RuvixStandardChanged | S::RuvixActive;
    QMenu menu;
    Carrier first;
    Carrier second;
    BVWidgetInterface::setupStandardMenu(all, &menu, &first, SIGNAL(standardActionTriggered(int)));
    BVWidgetInterface::setupStandardMenu(all, &menu, &second, SIGNAL(standardActionTriggered(int)));
    QCOMPARE(menu.findChildren<QSignalMapper *>(QStringLiteral("signal_mapper")).size(), 1);

    QSignalSpy firstSpy(&first, &Carrier::standardActionTriggered);
    QSignalSpy secondSpy(&second, &Carrier::standardActionTriggered);
    QStringList told;
    for (QAction *action : menu.actions().mid(0, 4)) {
        action->trigger();
        told << action->text() + QString::number(secondSpy.last().first().toInt());
    }
    QCOMPARE(told, (QStringList{"Delete Variable0", "Reset Value to Default1", "Reset Variable to Standard2", "Reset all to Standard5"}));
    QCOMPARE(firstSpy.count(), 0); // replaced by the second call

    // Two entries have ids but stand in no menu; their tool tips are crossed on purpose.
    QStringList hidden;
    for (QActionGroup *group : menu.findChildren<QActionGroup *>()) {
        for (QAction *action : group->actions()) {
            action->trigger();
            hidden << action->text() + '/' + action->toolTip() + QString::number(secondSpy.last().first().toInt());
        }
    }
    QCOMPARE(hidden.mid(0, 2), (QStringList{"Use as Standard/Make this parameter default4", "Use as Default/Make this parameter standard3"}));
}

void tst_BVWidgetInterface::standardMenuMember()
{
    for (const char *member : {SIGNAL(standardActionTriggered(int)), "standardActionTriggered(int)", "standardActionTriggered( int )"}) {
        QMenu menu;
        Carrier carrier;
        QSignalSpy spy(&carrier, &Carrier::standardActionTriggered);
        BVWidgetInterface::setupStandardMenu(S::RuvixActive, &menu, &carrier, member);
        menu.actions().constFirst()->trigger();
        QVERIFY2(spy.count() == 1, member);
    }
}

void tst_BVWidgetInterface::containerItems()
{
    Container container;
    container.setBvStatus(S::NeedInput, true);
    container.setStandardDefined(0, true);
    QCOMPARE(container.getBvStatus(), S::Stati(S::NeedInput));
    QCOMPARE(container.getBvStatus(0), S::Stati(S::StandardDefined));
    QVERIFY(S::testStatusProperty(&container.m_items[1], S::NeedInput));
    QCOMPARE(container.m_changes, 2);
    container.setBvStatus(1, S::Stati(S::NeedInput)); // unchanged
    QCOMPARE(container.m_changes, 2);

    container.setResetToStandardDisabled(true); // a flag without a style property
    QVERIFY(container.isResetToStandardDisabled());
    QCOMPARE(container.m_changes, 3);
    QCOMPARE(container.getBvStatus(), S::NeedInput | S::ResetToStandardDisabled);

    // Plain changes reach the style properties with the next update of the current item.
    S::setStatus(&container.m_items[1], S::UserEdit);
    QVERIFY(!S::testStatusProperty(&container.m_items[1], S::UserEdit));
    container.updateWidget();
    QCOMPARE(S::getStatusProperty(&container.m_items[1]), S::Stati(S::UserEdit));
    container.setCurrentIndex(-1);
    container.setBvStatus(S::NeedInput, true);
    QCOMPARE(container.getBvStatus(), S::Stati());
}

void tst_BVWidgetInterface::checkableContainerStatus()
{
    BVCheckableContainerInterface container;
    auto *first = new QRadioButton(&container);
    auto *second = new QRadioButton(&container);
    container.attachAllChildren();
    S::setStatusProperty(first, S::UserEdit | S::StandardChanged);
    QVERIFY(S::isStatus(&container, S::UserEdit | S::StandardChanged)); // combined, and shown
    QVERIFY(S::testStatusProperty(&container, S::UserEdit));

    container.setBvStatus(S::StandardLocked | S::NeedInput);
    QCOMPARE(S::getStatusProperty(first),
             S::UserEdit | S::StandardLocked); // keeps its own edit flag
    QCOMPARE(S::getStatusProperty(second), S::Stati(S::StandardLocked));
    QCOMPARE(container.getBvStatus(), S::StandardLocked | S::NeedInput);
    container.setProperty("ReferenceValue", 3);
    QCOMPARE(second->property("ReferenceValue"), QVariant(3));
}

void tst_BVWidgetInterface::checkableContainerButtons()
{
    BVCheckableContainerInterface container;
    container.setAutoAttach(true);
    container.show();
    QVERIFY(QTest::qWaitForWindowExposed(&container));
    auto *reparented = new QRadioButton;
    reparented->setParent(&container);
    auto *born = new QRadioButton(&container); // no button yet while it is being added
    born->show();
    QCOMPARE(container.indexFromId(1), 1);
    QCOMPARE(container.idFromIndex(0), 0);

    QSignalSpy clicked(&container, &BVCheckableContainerInterface::buttonClicked);
    born->click();
    QCOMPARE(clicked.value(0).value(0).toInt(), 1);
    QCOMPARE(container.currentIndex(), 1);
    container.uncheckCurrent();
    QCOMPARE(container.currentIndex(), -1);
    container.setChecked(0);
    QVERIFY(reparented->isChecked());

    reparented->setParent(nullptr);
    QCOMPARE(container.indexFromId(0), -1);
    container.detachAll();
    QCOMPARE(container.indexFromId(1), -1);
    S::setStatus(born, S::NeedInput, true);
    QVERIFY(!S::testStatus(&container, S::NeedInput));
    delete reparented;
}

void tst_BVWidgetInterface::checkableContainerOwnsItsButtons()
{
    BVCheckableContainerInterface first;
    BVCheckableContainerInterface second;
    second.setProperty("ReferenceValue", 4);
    QPushButton button;
    first.attach(&button, 7);
    first.attach(&button, 9);
    QCOMPARE(first.idFromIndex(0), 9);
    S::setStatusProperty(&button, S::NeedInput, true);
    S::setStatus(&button, S::DeleteVariableDisabled, true);
    second.attach(&button, 1);
    QVERIFY(S::isStatus(&first, S::Normal));
    QCOMPARE(button.property("ReferenceValue"), QVariant(4));
    second.setBvStatus(S::Stati(S::StandardLocked));
    QCOMPARE(S::status(&button), S::NeedInput | S::StandardLocked | S::DeleteVariableDisabled);
    second.detach(&button);
    QCOMPARE(button.contextMenuPolicy(), Qt::DefaultContextMenu);
    S::setStatus(&button, S::UserEdit, true);
    QVERIFY(!S::testStatus(&first, S::UserEdit) && !S::testStatus(&second, S::UserEdit));
}

void tst_BVWidgetInterface::checkableContainerMenu()
{
    BVCheckableContainerInterface container;
    container.addAction(new QAction(QStringLiteral("Own"), &container));
    auto *button = new QPushButton(&container);
    container.attach(button, 0);
    container.setBvStatus(S::StandardChanged | S::ResetAvailable);
    container.show();
    QVERIFY(QTest::qWaitForWindowExposed(&container));
    QSignalSpy actions(&container, &BVCheckableContainerInterface::standardActionTriggered);
    QStringList shown;
    QTimer::singleShot(0, &container, [&shown] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        shown = texts(*menu);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    Q_EMIT button->customContextMenuRequested(QPoint(1, 1));
    QCOMPARE(shown, (QStringList{"Reset Value to Standard", "-", "Own", "-"}));
    QCOMPARE(actions.count(), 1);
    QCOMPARE(actions.first().first().toInt(), int(BVWidgetInterface::ResetValue));
}

void tst_BVWidgetInterface::checkableContainerLifetime()
{
    auto container = std::make_unique<BVCheckableContainerInterface>();
    for (int id = 0; id < 3; ++id)
        container->attach(new QPushButton(container.get()), id);
    S::setStatus(container->button(1), S::NeedInput, true);
    delete container->button(1);
    QVERIFY(S::isStatus(container.get(), S::Normal));
    S::setStatus(container->button(0), S::NeedInput, true);
    QPointer<QAbstractButton> button = container->button(0);
    container.reset(); // buttons with a status go after the container's own parts
    QVERIFY(!button);
}

QTEST_MAIN(tst_BVWidgetInterface)

#include "tst_bvwidgetinterface.moc"
