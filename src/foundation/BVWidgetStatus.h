// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QFlags>
#include <QMetaType>
#include <QPointer>
#include <QString>

class QModelIndex;
class QStandardItem;
class QTreeWidgetItem;
class QWidget;

/// The status of a widget: a set of flags that tells where its value comes from and whether it
/// needs attention.
///
/// The status lives on the widget itself, so that any widget can carry one and style sheets can
/// select on it: the whole set in the dynamic property "WidgetStatus" (an unsigned integer, absent
/// means Normal), and one boolean property for each of the fourteen named flags. The plain
/// operations write "WidgetStatus" only; the ...StatusProperty operations write both and re-apply
/// the style.
///
/// Every change of the set is announced to the widget, synchronously, with a
/// BVWidgetStatusChangedEvent. Null widgets and items are accepted everywhere: nothing happens and
/// the answer is Normal, false or an empty text. GUI thread only.
///
/// An object of the class holds one widget, not owned, and offers the same operations on it.
class BVWIDGETS_EXPORT BVWidgetStatus
{
public:
    enum Status : quint32 {
        Normal = 0x0,
        UserEdit = 0x2,              ///< edited by the user
        NeedInput = 0x20,            ///< a value is missing or unacceptable
        RuvixEnabled = 0x40,         ///< a statistical variation can be defined
        RuvixStandardChanged = 0x80, ///< the variation differs from its standard
        RuvixActive = 0x100,         ///< a statistical variation is active
        RuvixInvalid = 0x200,        ///< the variation is not valid
        Different = 0x400,           ///< differs from the reference
        CompareDifferent = 0x800,    ///< differs from what it is compared with
        StandardEnabled = 0x1000,    ///< a standard can be defined
        StandardDefined = 0x2000,    ///< a standard is defined
        StandardDefault = 0x4000,    ///< the standard is the default
        DefaultChanged = 0x8000,     ///< differs from the default
        StandardChanged = 0x10000,   ///< differs from the standard
        StandardLocked = 0x20000,    ///< locked by the standard
        // The flags below steer the standard context menu; they have neither property nor colour.
        ResetAvailable = 0x40000,
        ResetToStandardDisabled = 0x80000,
        DeleteVariableDisabled = 0x100000,
    };
    Q_DECLARE_FLAGS(Stati, Status)

    /// The item data role that holds the flag set of a model item, as an int.
    static constexpr int s_itemRole = 280;

    /// Binds @p widget and silently resets its flag set to Normal.
    explicit BVWidgetStatus(QWidget *widget = nullptr);

    /// Binds another widget and leaves its flag set as it is.
    void attachWidget(QWidget *widget);
    void setStatus(Status status, bool on);
    void setStatus(Stati stati);
    Stati status() const;
    bool testStatus(Status status) const;
    bool isStatus(const BVWidgetStatus &other) const;
    void clear();

    static Stati status(const QWidget *widget);
    /// Replaces the whole flag set; sends the change event unless it stays the same.
    static void setStatus(QWidget *widget, Stati stati);
    /// Sets or clears one flag. Setting Normal clears all flags; clearing Normal does nothing.
    static void setStatus(QWidget *widget, Status status, bool on);
    /// Sets or clears one flag in the item's role 280. Normal has no effect here.
    static void setStatus(QStandardItem *item, Status status, bool on);
    static void setStatus(QTreeWidgetItem *item, int column, Status status, bool on);
    /// Whether the flag set shares a bit with @p status; so never true for Normal.
    static bool testStatus(const QWidget *widget, Status status);
    static bool isStatus(const QWidget *widget, Stati stati);
    static bool isStatus(const QWidget *widget, const BVWidgetStatus &other);
    static bool isStatusEqual(const QWidget *first, const QWidget *second);
    /// Resets the flag set to Normal without announcing it.
    static void clear(QWidget *widget);

    /// Writes the fourteen boolean properties and the flag set, and re-applies the style to the
    /// widget and its children if a boolean changed. Returns whether one did.
    static bool setStatusProperty(QWidget *widget, Stati stati);
    /// Writes one boolean property and, only if that changed, the flag set. Normal clears
    /// everything.
    static bool setStatusProperty(QWidget *widget, Status status, bool on);
    /// The flag set that the fourteen boolean properties make up.
    static Stati getStatusProperty(const QWidget *widget);
    static bool testStatusProperty(const QWidget *widget, Status status);
    /// The name of the flag's boolean property; empty unless @p status is exactly one named flag.
    static QString statusPropertyName(Status status);

    /// The one status that a single colour or icon shows for @p stati.
    static Status getDominantStatusFromFlag(Stati stati);
    static bool testFlag(const Stati &stati, Status status);
    static Stati setFlag(const Stati &stati, Status status, bool on);

    /// The property names of the set flags, joined by "|".
    static QString debugStatusFlag(Stati stati);
    static QString debugStatusToString(const QWidget *widget);
    static void debugStatus(const QWidget *widget, const QString &prefix);
    /// Appends the name of @p status to @p text if @p stati contains it; Normal only if it is
    /// empty.
    static void debugStateHelper(QString &text, Stati stati, Status status);

private:
    QPointer<QWidget> m_widget;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(BVWidgetStatus::Stati)
Q_DECLARE_METATYPE(BVWidgetStatus::Stati)

/// The name of the flag's boolean property, as BVWidgetStatus::statusPropertyName().
BVWIDGETS_EXPORT QString statusPropertyName(BVWidgetStatus::Status status);

/// The flag set in role 280 of the index; Normal for an invalid index.
BVWIDGETS_EXPORT BVWidgetStatus::Stati getWidgetStatus(const QModelIndex &index);
