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
constexpr int s_widthForTwo = 720;  // px, of a page with something beside the group
constexpr int s_groupStretch = 3;
constexpr int s_besideStretch = 2;

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
    m_column = new QWidget;
    m_content = new QVBoxLayout(m_column);
    m_content->setContentsMargins(s_margin, s_margin, s_margin, s_margin);
    m_content->setSpacing(s_margin);
    m_body = new QBoxLayout(QBoxLayout::TopToBottom);
    m_body->addWidget(m_group);
    m_content->addLayout(m_body);
    m_content->addStretch();
    auto *area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(m_column);
    arrange();
    return area;
}

void StepPage::addBeside(QWidget *widget)
{
    m_body->setStretch(0, s_groupStretch);
    m_body->addWidget(widget, s_besideStretch);
    arrange();
}

void StepPage::insertAboveGroup(QWidget *widget)
{
    m_content->insertWidget(m_content->indexOf(m_body), widget);
}

void StepPage::arrange()
{
    const bool isBeside = m_body->count() > 1 && width() >= s_widthForTwo;
    m_body->setDirection(isBeside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    const int widest = isBeside ? 2 * s_maximumWidth : s_maximumWidth;
    m_column->setMaximumWidth(widest + 2 * s_margin);
}

void StepPage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}
