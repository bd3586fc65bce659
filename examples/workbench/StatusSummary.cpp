// SPDX-License-Identifier: MIT
#include "StatusSummary.h"

#include "SetupStack.h"

#include <BVLabel.h>
#include <BVWidgetStatusRouter.h>

#include <QHBoxLayout>

namespace {

struct LegendEntry
{
    BVWidgetStatus::Status status;
    const char *text;
    const char *toolTip;
};

const LegendEntry s_legend[] = {
    {BVWidgetStatus::NeedInput, QT_TRANSLATE_NOOP("StatusSummary", "Needs input"),
     QT_TRANSLATE_NOOP("StatusSummary", "A value is missing or not acceptable. The tool tip of the "
                                        "field says why.")},
    {BVWidgetStatus::StandardChanged, QT_TRANSLATE_NOOP("StatusSummary", "Differs from file"),
     QT_TRANSLATE_NOOP("StatusSummary", "The value differs from the one in the file. The context "
                                        "menu of the field brings that back.")},
    {BVWidgetStatus::UserEdit, QT_TRANSLATE_NOOP("StatusSummary", "Edited"),
     QT_TRANSLATE_NOOP("StatusSummary", "You have entered the value since the set-up was opened.")},
};

} // namespace

StatusSummary::StatusSummary(SetupStack *form, QWidget *parent)
    : QWidget(parent)
    , m_form(form)
    , m_label(new BVLabel(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 2, 4, 2);
    layout->setSpacing(6);
    for (const LegendEntry &entry : s_legend) {
        auto *label = new BVLabel(tr(entry.text), this);
        label->setToolTip(tr(entry.toolTip));
        label->setBvStatus(entry.status, true);
        layout->addWidget(label);
    }
    layout->addSpacing(18);
    layout->addWidget(m_label);
    BVWidgetStatusRouter::route(m_label, form);
    connect(form, &SetupStack::changed, this, &StatusSummary::updateText);
    updateText();
}

QString StatusSummary::text() const
{
    return m_label->text();
}

void StatusSummary::updateText()
{
    const QStringList fields = m_form->fieldsNeedingInput();
    if (fields.isEmpty())
        m_label->setText(tr("All values are set"));
    else if (fields.size() == 1)
        m_label->setText(tr("1 field needs input"));
    else
        m_label->setText(tr("%1 fields need input").arg(fields.size()));
    m_label->setToolTip(fields.join(QLatin1Char('\n')));
}
