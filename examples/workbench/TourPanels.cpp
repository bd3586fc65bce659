// SPDX-License-Identifier: MIT
#include "FieldEditor.h"
#include "FieldGroup.h"
#include "FloatingPanel.h"
#include "HardeningCurve.h"
#include "MessageList.h"
#include "OperationList.h"
#include "OperationPage.h"
#include "OperationTabs.h"
#include "SetupStack.h"
#include "StartPage.h"
#include "Tour.h"
#include "TourHands.h"
#include "WorkbenchPanels.h"
#include "WorkbenchWindow.h"

#include <BVControlledStackItem.h>
#include <BVResizableWidgetHandle.h>
#include <MainWidget.h>

#include <QAction>
#include <QApplication>

using namespace TourHands;

namespace {

constexpr QSize s_narrowSize(640, 780); // px
constexpr int s_manyOperations = 20;

/// Drags a handle and waits until its panel has followed.
void drag(FloatingPanel *panel, BVResizableWidgetHandle *handle, const QPoint &distance)
{
    const QPoint middle = handle->rect().center();
    sendMouse(handle, QEvent::MouseButtonPress, middle);
    sendMouse(handle, QEvent::MouseMove, middle + distance);
    sendMouse(handle, QEvent::MouseButtonRelease, handle->rect().center());
    becomes([panel] { return panel->mainWidget() && !panel->mainWidget()->isAnimating(); });
}

} // namespace

bool Tour::showOperationTabs()
{
    m_window.resize(s_windowSize);
    m_window.openExample(QStringLiteral(":/Setups/square-cup-steel.xml"));
    OperationList *operations = m_window.form()->operations();
    const QList<BVControlledStackItem *> entries = operations->entries();
    operations->setState(entries[0], OperationList::Locked, true);
    operations->setState(entries[1], OperationList::Skipped, true);
    operations->setState(entries[2], OperationList::Cycled, true);
    type(operations->pages()[2]->group()->editors().back(), QStringLiteral("5 kg"));
    entries[0]->setCurrent();
    return expect(m_window.tabs()->count() == 3, QStringLiteral("each operation has a tab")) &&
           expect(m_window.tabs()->currentIndex() == 0,
                  QStringLiteral("the tab of the operation in sight is current")) &&
           picture(QStringLiteral("tabs")) &&
           write(QStringLiteral("tabs_high_resolution"), atTwiceTheResolution(m_window.tabs()));
}

bool Tour::openTabMenu()
{
    OperationTabs *tabs = m_window.tabs();
    const QPixmap menu =
        withPopup(&m_window, [tabs] { sendKey(tabs, Qt::Key_Down, QString(), Qt::AltModifier); });
    return expect(!menu.isNull(), QStringLiteral("the menu of a tab opens")) &&
           write(QStringLiteral("tab_menu"), menu);
}

bool Tour::showManyOperations()
{
    const QList<QAction *> &actions = m_window.form()->startPage()->kindActions();
    while (m_window.tabs()->count() < s_manyOperations)
        actions[m_window.tabs()->count() % actions.size()]->trigger();
    OperationList *operations = m_window.form()->operations();
    for (const int skipped : {4, 11})
        operations->setState(operations->entries()[skipped], OperationList::Skipped, true);
    operations->entries()[6]->setCurrent();
    settle();
    if (!picture(QStringLiteral("many_tabs")))
        return false;
    m_window.resize(s_narrowSize);
    settle();
    const bool isWritten = picture(QStringLiteral("many_tabs_narrow"));
    m_window.form()->resetToReference();
    m_window.resize(s_windowSize);
    return isWritten;
}

bool Tour::floatMessages()
{
    const WorkbenchPanels *panels = m_window.panels();
    type(field("tools", "gap"), QStringLiteral("3"));
    sendKey(field("tools", "gap")->edit(), Qt::Key_Return, QStringLiteral("\r"));
    settle();
    if (!expect(panels->messages()->problemCount() == 1,
                QStringLiteral("the messages tell what does not go together")) ||
        !picture(QStringLiteral("messages")))
        return false;
    FloatingPanel *panel = panels->messagePanel();
    drag(panel, panel->verticalHandle(), QPoint(0, -200));
    if (!expect(panel->isFloating(), QStringLiteral("the message panel floats")) ||
        !picture(QStringLiteral("messages_floating")))
        return false;
    panel->toggle();
    return expect(!panel->isFloating(), QStringLiteral("the message panel is back in its place"));
}

bool Tour::floatCurve()
{
    m_window.form()->resetToReference();
    m_window.showPageOf(field("material", "prestrain")->edit());
    settle();
    FloatingPanel *panel = m_window.panels()->curvePanel();
    if (!picture(QStringLiteral("curve")))
        return false;
    drag(panel, panel->diagonalHandle(), QPoint(-250, 120));
    HardeningCurve *curve = m_window.panels()->curve();
    sendMouse(curve, QEvent::MouseMove, curve->rect().center());
    if (!expect(panel->isFloating(), QStringLiteral("the curve floats")) ||
        !picture(QStringLiteral("curve_floating")) ||
        !write(QStringLiteral("curve_high_resolution"), atTwiceTheResolution(curve)))
        return false;
    panel->toggle();
    m_window.resize(s_narrowSize);
    if (!picture(QStringLiteral("curve_narrow")))
        return false;
    m_window.newSetup();
    m_window.showPageOf(field("material", "prestrain")->edit());
    return expect(!curve->hint().isEmpty(), QStringLiteral("the curve tells what it needs")) &&
           picture(QStringLiteral("curve_without_values"));
}
