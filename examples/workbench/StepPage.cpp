// SPDX-License-Identifier: MIT
#include "StepPage.h"

#include "FieldGroup.h"

#include <BVLabel.h>
#include <BVWidgetStatusHandler.h>

#include <QScrollArea>
#include <QVBoxLayout>

namespace {

constexpr int s_margin = 12;        // px, around the group
constexpr int s_maximumWidth = 560; // px, of the group
constexpr int s_headerMargin = 8;   // px
constexpr int s_headerPadding = 6;  // px, above and below its texts
constexpr int s_headerSpacing = 2;  // px

} // namespace

StepPage::StepPage(const QString &title, const QString &hint, FieldGroup *group, QWidget *parent)
    : QWidget(parent)
    , m_title(new BVLabel(this))
    , m_hint(new BVLabel(this))
    , m_group(group)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(createHeader());
    layout->addWidget(createContent(), 1);
    setTitle(title);
    setHint(hint);
    auto *handler = new BVWidgetStatusHandler(this);
    handler->attach(group);
    handler->updateParentStatus();
}

QWidget *StepPage::createHeader()
{
    auto *header = new QFrame(this);
    header->setObjectName(QStringLiteral("bv_step_header"));
    m_title->setProperty("header", true);
    m_hint->setProperty("hint", true);
    m_hint->setWordWrap(true);
    auto *layout = new QVBoxLayout(header);
    layout->setContentsMargins(s_headerMargin, s_headerPadding, s_headerMargin, s_headerPadding);
    layout->setSpacing(s_headerSpacing);
    layout->addWidget(m_title);
    layout->addWidget(m_hint);
    return header;
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

void StepPage::setTitle(const QString &title)
{
    m_title->setText(title);
}

QString StepPage::title() const
{
    return m_title->text();
}

void StepPage::setHint(const QString &hint)
{
    m_hint->setText(hint);
    m_hint->setVisible(!hint.isEmpty());
}
