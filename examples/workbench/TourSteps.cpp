// SPDX-License-Identifier: MIT
#include "FieldEditor.h"
#include "FieldGroup.h"
#include "OperationKinds.h"
#include "OperationList.h"
#include "OperationPage.h"
#include "SetupStack.h"
#include "StartPage.h"
#include "StepHeader.h"
#include "Tour.h"
#include "TourHands.h"
#include "WorkbenchWindow.h"

#include <BVControlledStackItem.h>
#include <BVControlledStackWidget.h>
#include <BVDragTreeWidget.h>
#include <BVStackAnimationWidget.h>
#include <BVStackControllerWidget.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QToolButton>

using namespace TourHands;

namespace {

constexpr int s_flightFrames[] = {20, 50, 75};

OperationPage *operation(const WorkbenchWindow &window, int index)
{
    return window.form()->operations()->pages().value(index);
}

BVControlledStackItem *entry(const WorkbenchWindow &window, int index)
{
    return BVControlledStackItem::itemFromWidget(operation(window, index));
}

/// The button that limits the navigation to entries that need input.
QToolButton *needInputButton(const BVStackControllerWidget *controller)
{
    const auto buttons = controller->findChildren<QToolButton *>();
    for (QToolButton *button : buttons) {
        if (button->isCheckable())
            return button;
    }
    return nullptr;
}

} // namespace

bool Tour::typeOnStep()
{
    m_window.openExample(QStringLiteral(":/Setups/square-cup-steel.xml"));
    entry(m_window, 0)->setCurrent();
    FieldEditor *force = operation(m_window, 0)->group()->editors().front();
    FieldEditor *stroke = operation(m_window, 0)->group()->editors()[1];
    type(force, QStringLiteral("25"));
    sendKey(force->edit(), Qt::Key_Return, QStringLiteral("\r"));
    settle();
    if (!expect(entry(m_window, 0)->getBVWidgetStatus().testFlag(BVWidgetStatus::StandardChanged),
                QStringLiteral("the entry shows that the page differs")))
        return false;
    type(stroke, QStringLiteral("5 kg"));
    sendKey(stroke->edit(), Qt::Key_Return, QStringLiteral("\r"));
    settle();
    return expect(entry(m_window, 0)->getBVWidgetStatus().testFlag(BVWidgetStatus::NeedInput),
                  QStringLiteral("the entry needs input")) &&
           picture(QStringLiteral("step_typed"));
}

bool Tour::beginOperations()
{
    m_window.form()->resetToReference();
    m_window.newSetup();
    m_window.form()->operationsEntry()->setCurrent();
    return expect(m_window.form()->startPage()->isVisible(),
                  QStringLiteral("the start page is in sight")) &&
           picture(QStringLiteral("start_page"));
}

bool Tour::flyToEntry()
{
    StartPage *page = m_window.form()->startPage();
    QWidget *button = page->getWidgetFromAction(page->kindActions().constFirst());
    static_cast<QAbstractButton *>(button)->click();
    BVStackAnimationWidget *flight = page->animationWidget();
    if (!expect(flight->isInFlight(), QStringLiteral("the button flies")))
        return false;
    for (const int frame : s_flightFrames) {
        flight->updateRect(frame);
        if (!write(QStringLiteral("flight_%1").arg(frame), m_window.grab()))
            return false;
    }
    flight->endAnimation();
    settle();
    return expect(operation(m_window, 0) && entry(m_window, 0)->isCurrent(),
                  QStringLiteral("the operation's page is in sight")) &&
           picture(QStringLiteral("operation_added"));
}

bool Tour::arrangeOperations()
{
    SetupStack *form = m_window.form();
    for (const char *key : {"flange", "springback", "trim"})
        form->startPage()->kindActions().value(OperationKinds::find(QLatin1String(key)))->trigger();
    BVDragTreeWidget *tree = form->controller()->tree();
    tree->setFocus(Qt::TabFocusReason);
    entry(m_window, 3)->setCurrent();
    settle();
    sendKey(tree, Qt::Key_Up, QString(), Qt::AltModifier);
    sendKey(tree, Qt::Key_Up, QString(), Qt::AltModifier);
    entry(m_window, 2)->setCurrent();
    sendKey(tree, Qt::Key_Space, QStringLiteral(" "));
    settle();
    return expect(operation(m_window, 1)->header()->title() == QStringLiteral("Trim"),
                  QStringLiteral("the operation has been moved up")) &&
           expect(operation(m_window, 2)->operation().isSkipped,
                  QStringLiteral("the operation is skipped")) &&
           picture(QStringLiteral("operation_skipped"));
}

bool Tour::openNavigationMenu()
{
    BVDragTreeWidget *tree = m_window.form()->controller()->tree();
    const QRect row = tree->visualItemRect(entry(m_window, 2)->treeItem());
    const QPixmap menu = withContextMenu(&m_window, tree->viewport(), row.center());
    return expect(!menu.isNull(), QStringLiteral("the menu of the navigation opens")) &&
           write(QStringLiteral("navigation_menu"), menu);
}

bool Tour::filterEntries()
{
    m_window.openExample(QStringLiteral(":/Setups/square-cup-steel.xml"));
    m_window.form()->startPage()->kindActions().constFirst()->trigger();
    QToolButton *button = needInputButton(m_window.form()->controller());
    button->setChecked(true);
    settle();
    const bool isWritten = expect(entry(m_window, 0)->treeItem()->isHidden(),
                                  QStringLiteral("entries that need no input are out of sight")) &&
                           picture(QStringLiteral("navigation_filtered"));
    button->setChecked(false);
    return isWritten;
}
