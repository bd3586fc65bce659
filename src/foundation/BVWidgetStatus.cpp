// SPDX-License-Identifier: MIT
#include "foundation/BVWidgetStatus.h"

#include "foundation/BVStatusBatch.h"
#include "foundation/BVWidgetStatusChangedEvent.h"

#include <QCoreApplication>
#include <QDebug>
#include <QModelIndex>
#include <QStandardItem>
#include <QTreeWidgetItem>
#include <QVariant>
#include <QWidget>

#include <algorithm>

namespace {

constexpr char s_statusProperty[] = "WidgetStatus";

struct StatusProperty
{
    BVWidgetStatus::Status status;
    const char *name;
};

// In the order in which the properties are written and the debug texts list them.
constexpr StatusProperty s_properties[] = {
    {BVWidgetStatus::NeedInput, "needInputStatus"},
    {BVWidgetStatus::UserEdit, "userEditStatus"},
    {BVWidgetStatus::RuvixEnabled, "ruvixEnabledStatus"},
    {BVWidgetStatus::RuvixStandardChanged, "ruvixStandardChanged"},
    {BVWidgetStatus::RuvixActive, "ruvixActiveStatus"},
    {BVWidgetStatus::RuvixInvalid, "ruvixInvalidStatus"},
    {BVWidgetStatus::Different, "differentStatus"},
    {BVWidgetStatus::StandardEnabled, "standardEnabledStatus"},
    {BVWidgetStatus::StandardDefined, "standardDefinedStatus"},
    {BVWidgetStatus::StandardChanged, "standardChangedStatus"},
    {BVWidgetStatus::DefaultChanged, "defaultChangedStatus"},
    {BVWidgetStatus::StandardDefault, "standardDefaultStatus"},
    {BVWidgetStatus::StandardLocked, "standardLockedStatus"},
    {BVWidgetStatus::CompareDifferent, "compareDifferentStatus"},
};

// The first of these that a flag set contains is the one that shows.
constexpr BVWidgetStatus::Status s_dominance[] = {
    BVWidgetStatus::NeedInput,       BVWidgetStatus::CompareDifferent, BVWidgetStatus::RuvixInvalid,
    BVWidgetStatus::StandardChanged, BVWidgetStatus::Different,        BVWidgetStatus::RuvixActive,
    BVWidgetStatus::UserEdit,
};

const char *propertyName(BVWidgetStatus::Status status)
{
    const auto it = std::find_if(std::begin(s_properties), std::end(s_properties),
                                 [status](const auto &entry) { return entry.status == status; });
    return it == std::end(s_properties) ? nullptr : it->name;
}

/// Writes one boolean property; returns whether it changed.
bool writeProperty(QWidget *widget, const char *name, bool on)
{
    static const QVariant s_true(true);
    static const QVariant s_false(false);
    if (widget->property(name).toBool() == on)
        return false;
    widget->setProperty(name, on ? s_true : s_false);
    return true;
}

void appendName(QString &text, const QString &name)
{
    if (!text.isEmpty())
        text += QLatin1Char('|');
    text += name;
}

/// The flag set of a role value after one flag was set or cleared.
int changedRole(const QVariant &role, BVWidgetStatus::Status status, bool on)
{
    const BVWidgetStatus::Stati stati(QFlag(role.toInt()));
    return static_cast<int>(BVWidgetStatus::setFlag(stati, status, on));
}

} // namespace

BVWidgetStatus::BVWidgetStatus(QWidget *widget)
    : m_widget(widget)
{
    clear(widget);
}

void BVWidgetStatus::attachWidget(QWidget *widget)
{
    m_widget = widget;
}

void BVWidgetStatus::setStatus(Status status, bool on)
{
    setStatus(m_widget, status, on);
}

void BVWidgetStatus::setStatus(Stati stati)
{
    setStatus(m_widget, stati);
}

BVWidgetStatus::Stati BVWidgetStatus::status() const
{
    return status(m_widget);
}

bool BVWidgetStatus::testStatus(Status status) const
{
    return testStatus(m_widget, status);
}

bool BVWidgetStatus::isStatus(const BVWidgetStatus &other) const
{
    return isStatus(m_widget, other);
}

void BVWidgetStatus::clear()
{
    clear(m_widget);
}

BVWidgetStatus::Stati BVWidgetStatus::status(const QWidget *widget)
{
    return widget ? Stati(QFlag(widget->property(s_statusProperty).toUInt())) : Stati();
}

void BVWidgetStatus::setStatus(QWidget *widget, Stati stati)
{
    if (!widget)
        return;
    const Stati oldStati = status(widget);
    if (oldStati == stati)
        return;
    widget->setProperty(s_statusProperty, static_cast<uint>(stati));
    BVWidgetStatusChangedEvent event(oldStati, stati, widget);
    QCoreApplication::sendEvent(widget, &event);
}

void BVWidgetStatus::setStatus(QWidget *widget, Status status, bool on)
{
    if (status == Normal && on)
        setStatus(widget, Stati());
    else
        setStatus(widget, setFlag(BVWidgetStatus::status(widget), status, on));
}

void BVWidgetStatus::setStatus(QStandardItem *item, Status status, bool on)
{
    if (!item)
        return;
    const QVariant role = item->data(s_itemRole);
    const int stati = changedRole(role, status, on);
    if (stati != role.toInt())
        item->setData(stati, s_itemRole);
}

void BVWidgetStatus::setStatus(QTreeWidgetItem *item, int column, Status status, bool on)
{
    if (!item || column < 0)
        return;
    const QVariant role = item->data(column, s_itemRole);
    const int stati = changedRole(role, status, on);
    if (stati != role.toInt())
        item->setData(column, s_itemRole, stati);
}

bool BVWidgetStatus::testStatus(const QWidget *widget, Status status)
{
    return (BVWidgetStatus::status(widget) & status) != 0;
}

bool BVWidgetStatus::isStatus(const QWidget *widget, Stati stati)
{
    return widget && status(widget) == stati;
}

bool BVWidgetStatus::isStatus(const QWidget *widget, const BVWidgetStatus &other)
{
    return isStatusEqual(widget, other.m_widget);
}

bool BVWidgetStatus::isStatusEqual(const QWidget *first, const QWidget *second)
{
    return first && second && status(first) == status(second);
}

void BVWidgetStatus::clear(QWidget *widget)
{
    if (widget)
        widget->setProperty(s_statusProperty, QVariant());
}

bool BVWidgetStatus::setStatusProperty(QWidget *widget, Stati stati)
{
    if (!widget)
        return false;
    bool changed = false;
    for (const StatusProperty &entry : s_properties)
        changed |= writeProperty(widget, entry.name, testFlag(stati, entry.status));
    setStatus(widget, stati);
    if (changed)
        BVStatusBatch::repolish(widget);
    return changed;
}

bool BVWidgetStatus::setStatusProperty(QWidget *widget, Status status, bool on)
{
    if (status == Normal)
        return setStatusProperty(widget, Stati());
    const char *name = propertyName(status);
    if (!widget || !name)
        return false;
    const Stati oldStati = BVWidgetStatus::status(widget);
    if (!writeProperty(widget, name, on))
        return false;
    setStatus(widget, setFlag(oldStati, status, on));
    BVStatusBatch::repolish(widget);
    return true;
}

BVWidgetStatus::Stati BVWidgetStatus::getStatusProperty(const QWidget *widget)
{
    Stati stati;
    if (!widget)
        return stati;
    for (const StatusProperty &entry : s_properties)
        stati.setFlag(entry.status, widget->property(entry.name).toBool());
    return stati;
}

bool BVWidgetStatus::testStatusProperty(const QWidget *widget, Status status)
{
    const char *name = propertyName(status);
    return widget && name && widget->property(name).toBool();
}

QString BVWidgetStatus::statusPropertyName(Status status)
{
    return QLatin1String(propertyName(status));
}

BVWidgetStatus::Status BVWidgetStatus::getDominantStatusFromFlag(Stati stati)
{
    const auto it = std::find_if(std::begin(s_dominance), std::end(s_dominance),
                                 [stati](Status status) { return testFlag(stati, status); });
    return it == std::end(s_dominance) ? Normal : *it;
}

bool BVWidgetStatus::testFlag(const Stati &stati, Status status)
{
    return (stati & status) != 0;
}

BVWidgetStatus::Stati BVWidgetStatus::setFlag(const Stati &stati, Status status, bool on)
{
    return on ? stati | status : stati & ~Stati(status);
}

QString BVWidgetStatus::debugStatusFlag(Stati stati)
{
    QString text;
    for (const StatusProperty &entry : s_properties) {
        if (testFlag(stati, entry.status))
            appendName(text, QLatin1String(entry.name));
    }
    return text;
}

QString BVWidgetStatus::debugStatusToString(const QWidget *widget)
{
    return debugStatusFlag(status(widget));
}

void BVWidgetStatus::debugStatus(const QWidget *widget, const QString &prefix)
{
    if (widget)
        qDebug().noquote().nospace()
            << prefix << " debug Status of " << widget << ": " << debugStatusToString(widget);
}

void BVWidgetStatus::debugStateHelper(QString &text, Stati stati, Status status)
{
    const bool contained = status == Normal ? !stati : (stati & status) == status;
    const char *name = propertyName(status);
    if (contained && name)
        appendName(text, QLatin1String(name));
}

QString statusPropertyName(BVWidgetStatus::Status status)
{
    return BVWidgetStatus::statusPropertyName(status);
}

BVWidgetStatus::Stati getWidgetStatus(const QModelIndex &index)
{
    return BVWidgetStatus::Stati(QFlag(index.data(BVWidgetStatus::s_itemRole).toInt()));
}
