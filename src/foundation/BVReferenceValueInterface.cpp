// SPDX-License-Identifier: MIT
#include "foundation/BVReferenceValueInterface.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QVariant>
#include <QWidget>

namespace {

constexpr int s_digits = 12; // significant, so that 0.1 + 0.2 reads 0.3

QString translated(const char *text)
{
    return QCoreApplication::translate("BVReferenceValueInterface", text);
}

bool hasReference(const QWidget *widget)
{
    const QVariant reference = widget->property(BVReferenceValueInterface::s_property);
    return reference.isValid() && !reference.isNull();
}

/// The state that a number or a truth value stands for; empty for anything else.
QString checkStateText(const QAbstractButton *button, const QVariant &reference)
{
    bool isNumber = false;
    const int state = reference.toInt(&isNumber);
    if (!isNumber)
        return QString();
    const auto *box = qobject_cast<const QCheckBox *>(button);
    if (box && box->isTristate() && state == Qt::PartiallyChecked &&
        reference.type() != QVariant::Bool)
        return translated("Partly");
    return state != 0 ? translated("On") : translated("Off");
}

QString plainText(const QVariant &reference)
{
    if (reference.type() == QVariant::Double)
        return QString::number(reference.toDouble(), 'g', s_digits);
    if (reference.type() == QVariant::StringList || reference.type() == QVariant::List)
        return reference.toStringList().join(QStringLiteral(", "));
    return reference.toString();
}

QString referenceText(const QWidget *widget, const QVariant &reference)
{
    QString text;
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    const auto *combo = qobject_cast<const QComboBox *>(widget);
    if (const auto *shown = dynamic_cast<const BVReferenceValueInterface *>(widget))
        text = shown->referenceValueText(reference);
    else if (button && button->isCheckable())
        text = checkStateText(button, reference);
    else if (combo && reference.type() == QVariant::Int)
        text = combo->itemText(reference.toInt());
    else
        text = plainText(reference);
    return text.isEmpty() ? translated("Undefined") : text;
}

} // namespace

BVReferenceValueInterface::~BVReferenceValueInterface() = default;

QString BVReferenceValueInterface::joinedToolTip(const QString &text, const QStringList &lines)
{
    if (Qt::mightBeRichText(text)) {
        QString rich = text;
        for (const QString &line : lines)
            rich += QLatin1String("<br>") + line.toHtmlEscaped();
        return rich;
    }
    QStringList all = lines;
    if (!text.isEmpty())
        all.prepend(text);
    QString plain = all.join(QLatin1Char('\n'));
    if (!Qt::mightBeRichText(plain))
        return plain;
    const QString body = plain.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
    return QLatin1String("<qt>") + body + QLatin1String("</qt>");
}

QString BVReferenceValueInterface::composedToolTip(const QWidget *widget)
{
    if (!widget)
        return QString();
    const auto *shown = dynamic_cast<const BVReferenceValueInterface *>(widget);
    QString text = shown ? shown->toolTipText() : widget->toolTip();
    if (!hasReference(widget))
        return text;
    const QVariant reference = widget->property(BVReferenceValueInterface::s_property);
    return joinedToolTip(text,
                         {translated("Reference value: %1").arg(referenceText(widget, reference))});
}

void BVReferenceValueInterface::showComposedToolTip(QWidget *widget, const QHelpEvent *event)
{
    if (!widget || !event)
        return;
    QToolTip::showText(event->globalPos(), composedToolTip(widget), widget, widget->rect(),
                       widget->toolTipDuration());
}

bool BVReferenceValueInterface::showToolTip(QWidget *widget, QHelpEvent *event)
{
    if (!widget || !event || !hasReference(widget))
        return false;
    showComposedToolTip(widget, event);
    return true;
}
