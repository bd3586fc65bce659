// SPDX-License-Identifier: MIT
#include "StepPage.h"

#include "FieldGroup.h"
#include "StepHeader.h"

#include <BVWidgetStatusHandler.h>

#include <QScrollArea>
#include <QVBoxLayout>

namespace {

constexpr int s_margin = 12;        // px, around the group
constexpr int s_maximumWidth = 560; // px, of the group

} // namespace

StepPage::StepPage(const QString &title, const QString &hint, FieldGroup *group, QWidget *parent)
    : QWidget(parent)
    , m_header(new StepHeader(this))
    , m_group(group)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    layout->addWidget(createContent(), 1);
    m_header->setTitle(title);
    m_header->setHint(hint);
    auto *handler = new BVWidgetStatusHandler(this);
    handler->attach(group);
    handler->updateParentStatus();
}

QWidget *StepPage::createContent()
{
    auto *column = new QWidget;
    column->setMaximumWidth(s_maximumWidth + 2 * s_margin);
    m_content = new QVBoxLayout(column);
    m_content->setContentsMargins(s_margin, s_margin, s_margin, s_margin);
    m_content->setSpacing(s_margin);
    m_content->addWidget(m_group);
    m_content->addStretch();
    auto *area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(column);
    return area;
}

void StepPage::insertAboveGroup(QWidget *widget)
{
    m_content->insertWidget(m_content->indexOf(m_group), widget);
}
