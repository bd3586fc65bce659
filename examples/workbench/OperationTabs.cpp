// SPDX-License-Identifier: MIT
#include "OperationTabs.h"

#include "OperationKinds.h"
#include "OperationList.h"
#include "OperationPage.h"

#include <BVControlledStackItem.h>
#include <BVControlledStackWidget.h>
#include <BVMenu.h>
#include <BVWidgetStatusChangedEvent.h>

#include <QSignalBlocker>

namespace {

constexpr int s_numberStep = 10; // as operations are numbered in the press shop
constexpr int s_numberLevel = 2; // of the shorter forms of a text
constexpr int s_letterLevel = 3;

struct StateEntry
{
    OperationList::State state;
    bool OperationSetup::*value;
    const char *text; // in the menu
    const char *toolTip;
};

const StateEntry s_states[] = {
    {OperationList::Skipped, &OperationSetup::isSkipped,
     QT_TRANSLATE_NOOP("OperationTabs", "&Skip"),
     QT_TRANSLATE_NOOP("OperationTabs", "It is skipped.")},
    {OperationList::Locked, &OperationSetup::isLocked, QT_TRANSLATE_NOOP("OperationTabs", "&Lock"),
     QT_TRANSLATE_NOOP("OperationTabs", "It is locked.")},
    {OperationList::Cycled, &OperationSetup::isCycled, QT_TRANSLATE_NOOP("OperationTabs", "&Cycle"),
     QT_TRANSLATE_NOOP("OperationTabs", "It is repeated until the part is as wanted.")},
};

OperationPage *pageOf(const BVControlledStackItem *entry)
{
    return qobject_cast<OperationPage *>(entry->getContainerWidget());
}

/// The number alone is what remains of a text when room runs out.
void fillForms(QMap<int, QString> &forms, const QString &text)
{
    BVAnimatedOPTabBar::fillTextReducingMap(forms, text);
    forms.insert(s_numberLevel, text.section(QLatin1Char(' '), 0, 0));
    forms.remove(s_letterLevel); // many operations begin with the same
}

} // namespace

OperationTabs::OperationTabs(OperationList *operations, BVControlledStackWidget *stack,
                             QWidget *parent)
    : BVAnimatedOPTabBar(parent)
    , m_operations(operations)
    , m_stack(stack)
{
    setAccessibleName(tr("Operations"));
    setTextReducing(fillForms);
    useCloseButtons(true);
    connect(operations, &OperationList::changed, this, &OperationTabs::follow);
    connect(stack,
            QOverload<BVControlledStackItem *, BVControlledStackItem *>::of(
                &BVControlledStackWidget::currentChanged),
            this, &OperationTabs::followCurrent);
    connect(this, &BVAnimatedTabBar::currentChanged, this, [this](int index) {
        if (index >= 0)
            entryAt(index)->setCurrent();
    });
    connect(this, &BVAnimatedTabBar::closeButtonClicked, this,
            [this](int index) { m_operations->remove(entryAt(index)); });
    connect(this, &BVAnimatedTabBar::menuButtonClicked, this, &OperationTabs::openMenu);
    follow();
}

BVControlledStackItem *OperationTabs::entryAt(int index) const
{
    return tabData(index).value<BVControlledStackItem *>();
}

int OperationTabs::indexOf(const BVControlledStackItem *entry) const
{
    for (int i = 0; i < count(); ++i) {
        if (entryAt(i) == entry)
            return i;
    }
    return -1;
}

void OperationTabs::follow()
{
    const QSignalBlocker blocker(this); // what the tabs tell now is what they were told
    followEntries();
    for (int i = 0; i < count(); ++i)
        showEntry(i);
    followCurrent();
    setVisible(count() > 0);
}

/// Tabs that have nothing to do with what changes stay as they are.
void OperationTabs::followEntries()
{
    const QList<BVControlledStackItem *> entries = m_operations->entries();
    for (int i = count() - 1; i >= 0; --i) {
        if (!entries.contains(entryAt(i)))
            removeTab(i);
    }
    for (int i = 0; i < entries.size(); ++i) {
        if (entryAt(i) == entries[i])
            continue;
        removeTab(indexOf(entries[i])); // if it stands elsewhere
        insertTab(i, QString());
        setData(i, QVariant::fromValue(entries[i]));
        useMenuButton(i, true);
        entries[i]->getContainerWidget()->installEventFilter(this);
    }
}

void OperationTabs::followCurrent()
{
    const QSignalBlocker blocker(this);
    const int index = indexOf(m_stack->getCurrentItem());
    if (index >= 0)
        setCurrentIndex(index);
    else
        clearCurrentIndex();
}

void OperationTabs::showEntry(int index)
{
    const OperationSetup operation = pageOf(entryAt(index))->operation();
    QString toolTip = SetupFields::translated(OperationKinds::kind(operation.kind).purpose);
    for (const StateEntry &state : s_states) {
        if (operation.*state.value)
            toolTip += QLatin1Char('\n') + tr(state.toolTip);
    }
    //: %1 is the number of an operation, %2 its name
    setItemText(index, tr("%1 %2").arg((index + 1) * s_numberStep).arg(operation.name));
    setItemToolTip(index, toolTip);
    setOperationSkipped(index, operation.isSkipped);
    setOperationLocked(index, operation.isLocked);
    setOperationCycled(index, operation.isCycled);
    showStatus(index);
}

void OperationTabs::showStatus(int index)
{
    BVWidgetStatus::Stati stati = BVWidgetStatus::status(entryAt(index)->getContainerWidget());
    stati.setFlag(BVWidgetStatus::StandardLocked, false); // the icon tells that
    setWidgetStatus(index, BVWidgetStatus::getDominantStatusFromFlag(stati));
}

bool OperationTabs::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == BVWidgetStatusChangedEvent::s_eventType) {
        for (int i = 0; i < count(); ++i) {
            if (entryAt(i)->getContainerWidget() == watched)
                showStatus(i);
        }
    }
    return BVAnimatedOPTabBar::eventFilter(watched, event);
}

void OperationTabs::openMenu(int index)
{
    BVControlledStackItem *entry = entryAt(index);
    const OperationSetup operation = pageOf(entry)->operation();
    BVMenu menu; // of its own, since the bar may be deleted while it is open
    for (const StateEntry &state : s_states) {
        QAction *action = menu.addAction(tr(state.text));
        action->setCheckable(true);
        action->setChecked(operation.*state.value);
        connect(action, &QAction::triggered, this, [this, index, entry, state](bool on) {
            if (entryAt(index) == entry)
                m_operations->setState(entry, state.state, on);
        });
    }
    showMenu(index, menu);
}
