// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QString>
#include <QStringList>

class QHelpEvent;
class QVariant;
class QWidget;

/// What a widget's tool tip tells of its reference value, the dynamic property "ReferenceValue".
///
/// A widget that shows its value in a way of its own implements the interface, so that the
/// reference value reads like the value. The static functions serve any widget. Without the
/// interface the reference of a checkable button reads "On" or "Off" (one with three states:
/// "Partly"), that of a combo box given as an index as the item's text, any other that has a text
/// as that text, and what cannot be shown as "Undefined".
class BVWIDGETS_EXPORT BVReferenceValueInterface
{
public:
    /// The dynamic property that holds a widget's reference value.
    static constexpr char s_property[] = "ReferenceValue";

    virtual ~BVReferenceValueInterface();

    /// The reference value as the widget would show it; empty when it cannot.
    virtual QString referenceValueText(const QVariant &reference) const = 0;
    /// What the tool tip says besides the reference value; by default the widget's tool tip
    /// property.
    virtual QString toolTipText() const = 0;

    /// A tool tip of a text, which may be rich, and lines of plain text below it.
    static QString joinedToolTip(const QString &text, const QStringList &lines);
    /// The tool tip of @p widget: its own text, then "Reference value: ..." on a line of its own if
    /// it has a reference value. Empty when there is neither.
    static QString composedToolTip(const QWidget *widget);
    /// Shows that tool tip where @p event asks for it; an empty one hides what is shown.
    static void showComposedToolTip(QWidget *widget, const QHelpEvent *event);
    /// Shows it only if the widget has a reference value; returns whether it does.
    static bool showToolTip(QWidget *widget, QHelpEvent *event);
};
