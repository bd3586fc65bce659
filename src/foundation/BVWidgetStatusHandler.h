// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVWidgetStatus.h"

#include <QHash>
#include <QObject>
#include <QPointer>

class QWidget;

/// Combines the statuses of child widgets, by bitwise OR, into the status of one parent widget.
///
/// The handler is an event filter on the attached children. Handlers nest: the parent announces its
/// own change, which a handler further up combines again. A parent that is a BVWidgetInterface gets
/// the result as plain flags, any other also as style properties with the style re-applied.
///
/// A tool tip of a child that has a reference value (dynamic property "ReferenceValue") tells it.
class BVWIDGETS_EXPORT BVWidgetStatusHandler : public QObject
{
    Q_OBJECT

public:
    /// The handler belongs to @p widget. @p member, if given, is a slot of the widget as made by
    /// SLOT(); childStatusChanged() is connected to it.
    explicit BVWidgetStatusHandler(QWidget *widget, const char *member = nullptr);

    /// Follows @p child from now on; its flags count at the next update. Null and a child attached
    /// already are ignored.
    void attach(QWidget *child);
    void detach(QWidget *child);
    void clear();

    /// While blocking, children's changes are neither recorded nor combined. Returns the previous
    /// value; switching off with @p update combines what was recorded before.
    bool setBlocking(bool block, bool update);
    bool isBlocking() const { return m_blocking; }

    // The settings below take effect at the next update.

    /// A disabled handler combines to an empty flag set.
    void setEnabled(bool enabled);
    bool isEnabled() const { return m_enabled; }
    /// Whether disabled children count; they do not by default.
    void setObserveDisabledChildren(bool observe);
    bool isObserveDisabledChildren() const { return m_observeDisabledChildren; }
    /// Flags that the parent always carries.
    void set(BVWidgetStatus::Stati ownStatus);

    /// Combines the recorded statuses and writes the result to the parent.
    void updateParentStatus();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// Emitted after the parent's status has followed. A slot that changes the child's status in
    /// turn does so later, with a queued call: the change being told is still on its way to other
    /// listeners.
    void childStatusChanged(QWidget *child, BVWidgetStatus::Stati status);

private Q_SLOTS:
    void onChildDeleted(QObject *child);

private:
    void follow(QWidget *child) const;
    void silentDetach(QWidget *child);
    void onChildStatusChanged(QEvent *event);

    QHash<QWidget *, BVWidgetStatus::Stati> m_children;
    BVWidgetStatus::Stati m_ownStatus;
    QPointer<QWidget> m_widget;
    bool m_blocking = false;
    bool m_isInterface;
    bool m_enabled = true;
    bool m_observeDisabledChildren = false;
};
