// SPDX-License-Identifier: MIT
#include "foundation/BVReferenceValueInterface.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QStringList>
#include <QToolTip>
#include <QVariant>
#include <QWidget>

namespace {

constexpr char s_referenceProperty[] = "ReferenceValue";

QString translated(const char *text)
{
    return QCoreApplication::translate("BVReferenceValueInterface", text);
}

bool hasReference(const QWidget *widget)
{
    const QVariant reference = widget->property(s_referenceProperty);
    return reference.isValid() && !reference.isNull();
}

QString checkStateText(const QVariant &reference)
{
    if (reference.toInt() == Qt::PartiallyChecked && reference.type() != QVariant::Bool)
        return translated("Partly");
    return reference.toBool() ? translated("On") : translated("Off");
}

QString referenceText(const QWidget *widget, const QVariant &reference)
{
    QString text;
    if (const auto *shown = dynamic_cast<const BVReferenceValueInterface *>(widget))
        text = shown->referenceValueText(reference);
    else if (const auto *button = qobject_cast<const QAbstractButton *>(widget);
             button && button->isCheckable() && reference.canConvert<bool>())
        text = checkStateText(reference);
    else if (reference.canConvert<QStringList>() && reference.type() != QVariant::String)
        text = reference.toStringList().join(QStringLiteral(", "));
    else
        text = reference.toString();
    return text.isEmpty() ? translated("Undefined") : text;
}

} // namespace

BVReferenceValueInterface::~BVReferenceValueInterface() = default;

QString BVReferenceValueInterface::composedToolTip(const QWidget *widget)
{
    if (!widget)
        return QString();
    const auto *shown = dynamic_cast<const BVReferenceValueInterface *>(widget);
    QString text = shown ? shown->toolTipText() : widget->toolTip();
    if (hasReference(widget)) {
        if (!text.isEmpty())
            text += QLatin1Char('\n');
        text += translated("Reference value: %1")
                    .arg(referenceText(widget, widget->property(s_referenceProperty)));
    }
    return text;
}

bool BVReferenceValueInterface::showToolTip(QWidget *widget, QHelpEvent *event)
{
    if (!widget || !hasReference(widget))
        return false;
    QToolTip::showText(event->globalPos(), composedToolTip(widget), widget);
    return true;
}
