// SPDX-License-Identifier: MIT
#include "WorkbenchPanels.h"

#include "FloatingPanel.h"
#include "HardeningCurve.h"
#include "MessageList.h"
#include "PanelMenu.h"
#include "SetupFields.h"
#include "SetupStack.h"
#include "StepPage.h"
#include "WorkbenchSettings.h"

#include <RegisterResizeableWidgetInterfaceEvent.h>
#include <ResizeWidgetCloseEvent.h>
#include <UnitsChangedEvent.h>

#include <QMainWindow>

using Brimvale::RegisterResizeableWidgetInterfaceEvent;

namespace {

// Enlarged panels leave something of the window in sight.
constexpr int s_highestMessages = 420;    // px
constexpr QSize s_largestCurve(780, 560); // px

} // namespace

WorkbenchPanels::WorkbenchPanels(SetupStack *form, QMainWindow *window)
    : QObject(window)
    , m_form(form)
    , m_menu(new PanelMenu(tr("&View"), window))
{
    createMessagePanel();
    createCurvePanel();
    connect(m_menu, &PanelMenu::placeNeeded, form, &SetupStack::showPageOf);
}

void WorkbenchPanels::createMessagePanel()
{
    m_messages = new MessageList(m_form);
    m_messagePanel = new FloatingPanel(tr("Message panel"), m_messages);
    m_messagePanel->setObjectName(QStringLiteral("messagePanel"));
    m_messagePanel->setVerticalAnchorPosition(BVResizableWidget::AnchorBottom);
    m_messagePanel->setMaximumHeight(s_highestMessages);
    m_messagePanel->useVerticalHandle(true);
    m_messagePanel->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void WorkbenchPanels::createCurvePanel()
{
    m_curve = new HardeningCurve;
    m_curvePanel = new FloatingPanel(tr("Material curve"), m_curve);
    m_curvePanel->setObjectName(QStringLiteral("curvePanel"));
    m_curvePanel->setHorizontalAnchorPosition(BVResizableWidget::AnchorRight);
    m_curvePanel->setMaximumSize(s_largestCurve);
    m_curvePanel->useVerticalHandle(true);
    m_curvePanel->useHorizontalHandle(true);
    m_curvePanel->useDiagonalHandle(true);
    m_form->page(SetupFields::findGroup(QStringLiteral("material")))->addBeside(m_curvePanel);
    connect(m_form, &SetupStack::changed, this, &WorkbenchPanels::showLaw);
    showLaw();
}

void WorkbenchPanels::showLaw()
{
    const ProcessSetup setup = m_form->setup();
    const int material = SetupFields::findGroup(QStringLiteral("material"));
    const int yieldStress = SetupFields::findField(material, QStringLiteral("yieldStress"));
    m_curve->setLaw(HardeningLaw(setup), setup.number(yieldStress));
}

void WorkbenchPanels::restoreState()
{
    const WorkbenchSettings &settings = WorkbenchSettings::instance();
    for (FloatingPanel *panel : {m_messagePanel, m_curvePanel})
        panel->restoreState(settings.panelState(panel->objectName()));
}

void WorkbenchPanels::storeState() const
{
    WorkbenchSettings &settings = WorkbenchSettings::instance();
    for (const FloatingPanel *panel : {m_messagePanel, m_curvePanel})
        settings.setPanelState(panel->objectName(), panel->saveState());
}

bool WorkbenchPanels::handleEvent(const QEvent *event)
{
    if (event->type() == UnitsChangedEvent::s_eventType) {
        m_curve->update();
        m_messages->showProblems();
    }
    if (event->type() == RegisterResizeableWidgetInterfaceEvent::s_customEventType) {
        m_menu->take(*static_cast<const RegisterResizeableWidgetInterfaceEvent *>(event));
        return true;
    }
    // The panel is back already, and the menu has heard of it.
    return event->type() == Brimvale::ResizeWidgetCloseEvent::s_customEventType;
}
