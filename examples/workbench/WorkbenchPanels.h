// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class FloatingPanel;
class HardeningCurve;
class MessageList;
class PanelMenu;
class QMainWindow;
class SetupStack;

/// The panels of the window that float: the messages below the steps and the hardening curve on the
/// page of the material, with the menu that lists them.
class WorkbenchPanels : public QObject
{
    Q_OBJECT

public:
    /// Puts the curve on its page; the caller puts the messages in their place.
    WorkbenchPanels(SetupStack *form, QMainWindow *window);

    FloatingPanel *messagePanel() const { return m_messagePanel; }
    FloatingPanel *curvePanel() const { return m_curvePanel; }
    MessageList *messages() const { return m_messages; }
    HardeningCurve *curve() const { return m_curve; }
    PanelMenu *menu() const { return m_menu; }

    /// Lets the panels float, or not, as the settings say, or writes that into the settings.
    void restoreState();
    void storeState() const;
    /// Follows the user's choice of units. Answers whether the event is one of a panel, which then
    /// has been handled.
    bool handleEvent(const QEvent *event);

private:
    void createMessagePanel();
    void createCurvePanel();
    void showLaw();

    SetupStack *m_form; // not owned, as all below
    FloatingPanel *m_messagePanel = nullptr;
    FloatingPanel *m_curvePanel = nullptr;
    MessageList *m_messages = nullptr;
    HardeningCurve *m_curve = nullptr;
    PanelMenu *m_menu;
};
