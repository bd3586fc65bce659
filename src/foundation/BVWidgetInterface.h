// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVWidgetStatus.h"

#include <QPointer>

class QMenu;
class QObject;
class QPoint;
class QWidget;

/// What every status-carrying widget offers: its flags, a setter and a test for each, and the
/// standard context menu.
///
/// The status lives on the status widget, usually the widget that implements the interface; it is
/// not owned.
class BVWIDGETS_EXPORT BVWidgetInterface
{
public:
    /// What the standard menu's entries ask for; the argument of standardActionTriggered(int).
    enum StandardAction {
        DeleteVariable = 0,
        ResetValue = 1,
        ResetVariable = 2,
        UseAsDefault = 3,
        UseAsStandard = 4,
        ResetAll = 5,
    };

    explicit BVWidgetInterface(QWidget *statusWidget = nullptr);
    BVWidgetInterface(const BVWidgetInterface &) = default;
    BVWidgetInterface &operator=(const BVWidgetInterface &) = default;
    virtual ~BVWidgetInterface();

    /// Sets or clears one flag, re-applies the style and calls onStatusChanged(), if the flag
    /// changes.
    virtual void setBvStatus(BVWidgetStatus::Status status, bool on);
    /// Replaces the flag set likewise.
    virtual void setBvStatus(BVWidgetStatus::Stati stati);
    /// Whether the flag set shares a bit with @p status; so never true for Normal.
    virtual bool getBvStatus(BVWidgetStatus::Status status) const;
    virtual BVWidgetStatus::Stati getBvStatus() const;

protected:
    /// Called after each change made through the interface.
    virtual void onStatusChanged();
    /// Re-applies the style to the status widget and its children.
    virtual void updateWidget();
    virtual QWidget *getStatusWidget() const;

public:
    void setStatusWidget(QWidget *widget);
    /// Clears the status silently, then re-applies the style and calls onStatusChanged().
    void resetBvStatus();

    void setNeedInputStatus(bool on);
    bool isNeedInputStatus() const;
    void setUserEditStatus(bool on);
    bool isUserEditStatus() const;
    void setDifferentStatus(bool on);
    bool isDifferentStatus() const;
    void setCompareDifferent(bool on);
    bool isCompareDifferent() const;
    void setRuvixEnabled(bool on);
    bool isRuvixEnabled() const;
    void setRuvixStandardChanged(bool on);
    bool isRuvixStandardChanged() const;
    void setRuvixActive(bool on);
    bool isRuvixActive() const;
    void setRuvixInvalid(bool on);
    bool isRuvixInvalid() const;
    void setStandardEnabled(bool on);
    bool isStandardEnabled() const;
    void setStandardDefined(bool on);
    bool isStandardDefined() const;
    void setStandardDefault(bool on);
    bool isStandardDefault() const;
    void setDefaultChanged(bool on);
    bool isDefaultChanged() const;
    void setStandardChanged(bool on);
    bool isStandardChanged() const;
    void setStandardLocked(bool on);
    bool isStandardLocked() const;
    void setResetToStandardDisabled(bool on);
    bool isResetToStandardDisabled() const;
    void setDeleteVariableDisabled(bool on);
    bool isDeleteVariableDisabled() const;

    /// Puts the entries that @p stati calls for at the top of @p menu. The chosen entry's
    /// StandardAction reaches @p member of @p receiver, a signal or slot with one int argument,
    /// written as SIGNAL() or SLOT() make it or as the bare signature. Calling it again on the same
    /// menu replaces the receiver.
    static void setupStandardMenu(BVWidgetStatus::Stati stati, QMenu *menu, const QObject *receiver,
                                  const char *member);

protected:
    /// The same for the widget's own flags; nothing while ResetToStandardDisabled is set.
    void setupStandardMenu(QMenu *menu, const QObject *receiver, const char *member) const;
    /// Takes @p menu over, puts the standard entries in front of its own and opens it; the choice
    /// reaches the signal standardActionTriggered(int) of @p receiver. False, with the menu gone,
    /// if it is empty.
    bool popupStandardMenu(QMenu *menu, const QObject *receiver,
                           const QPoint &globalPosition) const;

private:
    void emitChanged();

    QPointer<QWidget> m_statusWidget;
};
